// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

#include <QtCore/QString>

namespace tolvane {

/// Logs the phrase, followed by the error's text, at `error`.
void logFailure(const QString &phrase, const Error &error);

/// As logFailure(), and also sends an analytics event with a context such as "fetchTicket".
void reportFailure(const QString &phrase, const QString &context, const Error &error);

} // namespace tolvane
