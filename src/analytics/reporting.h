// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

#include <QtCore/QString>

namespace tolvane {

/// Writes an error line: the phrase, then the error's text.
void logFailure(const QString &phrase, const Error &error);

/// As logFailure(), and tells the host's analytics, under a context word such as "fetchTicket".
void reportFailure(const QString &phrase, const QString &context, const Error &error);

} // namespace tolvane
