// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane::markdown {

/// The percent-encoded URL of a link. Mails lose their attachments. Empty unless the address is a
/// valid URL for https, http or mailto.
QString allowedLink(const QString &address);

/// Reveals the target of a link whose text hides it. Returns an addition to the text: the address
/// if the text is invisible, or the host in parentheses if the text looks like the address of
/// another host. Usually empty.
QString linkAddition(const QString &text, const QString &address);

} // namespace tolvane::markdown
