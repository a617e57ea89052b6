// SPDX-License-Identifier: MIT
#include "base/invokenoexcept.h"

#include "base/errors.h"

namespace tolvane {

Q_LOGGING_CATEGORY(platformLog, "com.tolvane.ios.platform")

void reportException(const char *where) noexcept
{
    try {
        qCCritical(platformLog).noquote()
            << "An exception left" << where << "-" << currentError()->localizedDescription();
    } catch (...) {
        // Logging itself failed, for example for lack of memory.
        std::fputs("tolvane: an exception could not be reported\n", stderr);
    }
}

} // namespace tolvane
