// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/error.h>

namespace tolvane {

/// An operation was told to stop before it was done.
class TOLVANE_PRIVATE_EXPORT CancellationError final : public Error
{
public:
    CancellationError();
};

/// The transport could not bring a request to its answer. Codes are those that dashboards know from
/// "NSURLErrorDomain".
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

    /// @param detail what the network stack says, for the developer's eyes; may be empty
    explicit UrlError(Code code, const QString &detail = {});
};

/// The exception in flight as a shared error, whatever its type. To be called in a catch block.
TOLVANE_AUTOTEST_EXPORT ErrorPtr currentError();

} // namespace tolvane
