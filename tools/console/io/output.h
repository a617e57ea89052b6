// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>

namespace tolvane::console {

/// Writes all bytes to standard output, unbuffered and uninterrupted by other writers. Thread-safe.
/// Exits with status 0 once the reader has closed the pipe.
void writeOut(const QByteArray &bytes);

/// Writes one line of the protocol.
void writeLine(const QJsonObject &object);

} // namespace tolvane::console
