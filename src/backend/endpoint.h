// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>
#include <QtCore/QUrl>

namespace tolvane {

/// The base URL of all requests, and the API key.
struct Endpoint
{
    QString baseUrl;
    QString apiKey;

    /// The endpoint of the configured environment. The variable TOLVANE_API_URL of the process
    /// replaces its URL, see mayReplaceEndpoint(). Safe from any thread.
    TOLVANE_PRIVATE_EXPORT static Endpoint current();
};

/// True for URLs to which a release build sends the API key: https, or loopback. A process that can
/// set the host's environment variables must not be able to read the key on the network.
TOLVANE_AUTOTEST_EXPORT bool mayReplaceEndpoint(const QUrl &url);

/// True if this build still has the placeholder endpoints, which have no backend.
bool hasPlaceholderEndpoints();

} // namespace tolvane
