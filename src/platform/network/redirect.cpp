// SPDX-License-Identifier: MIT
#include "platform/network/redirect.h"

namespace tolvane {

namespace {

bool isSameOrigin(const QUrl &a, const QUrl &b)
{
    const auto port = [](const QUrl &url) {
        return url.port(url.scheme() == QLatin1String("https") ? 443 : 80);
    };
    return a.scheme() == b.scheme() && a.host() == b.host() && port(a) == port(b);
}

/// Requests with the key stay on their origin. Anonymous requests may change it, but never from
/// https to http.
bool canFollowRedirect(const UrlRequest &request, const QUrl &target)
{
    if (!request.isAnonymous)
        return isSameOrigin(target, request.url);
    const QString scheme = target.scheme();
    return scheme == QLatin1String("https") ||
           (scheme == QLatin1String("http") && request.url.scheme() == scheme);
}

} // namespace

bool keepsMethod(int status)
{
    return status == 307 || status == 308;
}

std::optional<UrlRequest> redirectedRequest(UrlRequest request, int status,
                                            const QByteArray &location)
{
    const bool isRedirect = keepsMethod(status) || (status >= 301 && status <= 303);
    if (!isRedirect || location.isEmpty())
        return std::nullopt;
    // The server may have handled the request: repeated, a message could arrive twice.
    if (keepsMethod(status) && request.method != "GET")
        return std::nullopt;
    const QUrl target = request.url.resolved(QUrl::fromEncoded(location));
    if (!target.isValid() || target.host().isEmpty() || !canFollowRedirect(request, target))
        return std::nullopt;
    request.url = target;
    if (request.method != "GET") {
        // RFC 9110, 15.4: the client fetches the result with GET.
        request.method = "GET";
        request.body.clear();
        request.headers.removeIf([](const auto &header) { return header.first == "Content-Type"; });
    }
    return request;
}

} // namespace tolvane
