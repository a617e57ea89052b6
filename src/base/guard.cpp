// SPDX-License-Identifier: MIT
#include "base/guard.h"

#include "base/errors.h"

namespace tolvane {

Q_LOGGING_CATEGORY(platformLog, "com.tolvane.ios.platform")

void reportException(const char *where) noexcept
{
    try {
        qCCritical(platformLog).noquote()
            << "An exception left" << where << "-" << currentError()->localizedDescription();
    } catch (...) {
        // Out of memory while saying so; there is nothing left to say it with.
        std::fputs("tolvane: an exception could not be reported\n", stderr);
    }
}

} // namespace tolvane
