// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QLoggingCategory>

namespace tolvane {

Q_DECLARE_LOGGING_CATEGORY(platformLog)

/// Logs the current exception. Call it in a catch block.
void reportException(const char *where) noexcept;

/// Calls `work` and logs an exception instead of passing it on, since an event loop or a foreign
/// caller would terminate the process. The log line names `where`.
template <typename Work>
void invokeNoexcept(const char *where, Work &&work) noexcept
{
    try {
        work();
    } catch (...) {
        reportException(where);
    }
}

} // namespace tolvane
