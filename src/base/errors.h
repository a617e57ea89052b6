// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/error.h>

namespace tolvane {

/// The operation was cancelled before it finished.
class TOLVANE_PRIVATE_EXPORT CancellationError final : public Error
{
public:
    CancellationError();
};

/// A failure of the transport. The codes are those of "NSURLErrorDomain", which existing dashboards
/// know.
class TOLVANE_AUTOTEST_EXPORT UrlError final : public Error
{
public:
    enum Code {
        cancelled = -999,
        badURL = -1000,
        timedOut = -1001,
        unsupportedURL = -1002,
        cannotFindHost = -1003,
        cannotConnectToHost = -1004,
        networkConnectionLost = -1005,
        notConnectedToInternet = -1009,
        badServerResponse = -1011,
        dataLengthExceedsMaximum = -1103,
        secureConnectionFailed = -1200,
    };

    /// @param detail the network stack's message for developers; may be empty
    explicit UrlError(Code code, const QString &detail = {});
};

/// The current exception as a shared error, whatever its type. Call it in a catch block.
TOLVANE_AUTOTEST_EXPORT ErrorPtr currentError();

} // namespace tolvane
