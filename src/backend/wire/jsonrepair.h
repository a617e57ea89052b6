// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

namespace tolvane::json {

/// Replaces two things that JSON allows but the parser rejects: a lone surrogate becomes U+FFFD,
/// and a number beyond the parser's range becomes a value that no field accepts. Without this, one
/// such value would make a whole response unreadable. The rest of the text does not change, even if
/// it is invalid.
QByteArray repaired(QByteArrayView json);

} // namespace tolvane::json
