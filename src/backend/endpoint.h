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

/// Whether a release build sends the API key to this address: https, or loopback. Whoever can set a
/// variable of the host's process must not be able to read the key on the network.
TOLVANE_AUTOTEST_EXPORT bool mayReplaceEndpoint(const QUrl &url);

/// Whether this build still has the placeholder endpoints, at which there is no backend.
bool hasPlaceholderEndpoints();

} // namespace tolvane
