// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace tolvane::json {

/// Returns the text without what JSON allows and the parser does not: a half of a surrogate pair
/// that stands alone becomes U+FFFD, and a number beyond the range of numbers becomes a value that
/// no field accepts. Therefore one such value does not make a whole response unreadable. Anything
/// else stays as it is, valid or not.
QByteArray repaired(QByteArrayView json);

} // namespace tolvane::json
