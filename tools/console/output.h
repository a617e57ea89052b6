// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>

namespace tolvane::console {

/// Writes bytes to standard output at once and whole, from whichever thread. Ends the process
/// quietly when nobody reads any more.
void writeOut(const QByteArray &bytes);

/// One line of the protocol.
void writeLine(const QJsonObject &object);

} // namespace tolvane::console
