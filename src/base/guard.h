// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QLoggingCategory>

namespace tolvane {

Q_DECLARE_LOGGING_CATEGORY(platformLog)

/// Writes the exception in flight to the platform's log. To be called in a catch block.
void reportException(const char *where) noexcept;

/// Runs code whose exceptions must not travel on: event loops and foreign callers would end the
/// process. A failure is reported to the log under the word `where`.
template <typename Work>
void guarded(const char *where, Work &&work) noexcept
{
    try {
        work();
    } catch (...) {
        reportException(where);
    }
}

} // namespace tolvane
