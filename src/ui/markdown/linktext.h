// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane::markdown {

/// An addition to the text of a link that leads to the address: the address if there is nothing to
/// see, and the host in parentheses if the text looks like the address of another one.
QString linkAddition(const QString &text, const QString &address);

} // namespace tolvane::markdown
