// SPDX-License-Identifier: MIT
#include "backend/endpoint.h"

#include "backend/configuration.h"
#include "platform/platform.h"

#include <QtNetwork/QHostAddress>

#include <array>

namespace tolvane {

namespace {

// Indexed by Tolvane::Environment. The build chooses them.
constexpr std::array endpoints = {
    TOLVANE_PRODUCTION_API_URL,
    TOLVANE_DEVELOPMENT_API_URL,
    TOLVANE_ALPHA_API_URL,
};

#ifdef NDEBUG
constexpr bool isDebugBuild = false;
#else
constexpr bool isDebugBuild = true;
#endif

/// An empty variable counts as not set.
std::optional<QString> replacement()
{
    const std::optional<QString> url = platform().environmentVariable("TOLVANE_API_URL");
    if (!url || url->isEmpty())
        return std::nullopt;
    return isDebugBuild || mayReplaceEndpoint(QUrl(*url)) ? url : std::nullopt;
}

} // namespace

Endpoint Endpoint::current()
{
    const Configuration &configuration = Configuration::shared();
    const auto environment = static_cast<std::size_t>(configuration.environment());
    return {replacement().value_or(QString::fromLatin1(endpoints.at(environment))),
            configuration.apiKey().value_or(QString())};
}

bool mayReplaceEndpoint(const QUrl &url)
{
    const QString host = url.host();
    return url.scheme() == QLatin1String("https") ||
           (url.scheme() == QLatin1String("http") &&
            (host == QLatin1String("localhost") || QHostAddress(host).isLoopback()));
}

bool hasPlaceholderEndpoints()
{
    return !isDebugBuild &&
           QUrl(QString::fromLatin1(endpoints.front())).host().endsWith(QLatin1String(".example"));
}

} // namespace tolvane
