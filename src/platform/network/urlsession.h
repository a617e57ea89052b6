// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QFuture>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QUrl>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace tolvane {

using HttpHeaders = QList<QPair<QByteArray, QByteArray>>;

struct UrlRequest
{
    QUrl url;
    QByteArray method = "GET";
    HttpHeaders headers;
    QByteArray body;
    /// The idle time after which the request times out.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    /// How long the head of the response may take, once the request has been sent. The network
    /// stack does not report how long the head is, and keeps all of it in memory.
    std::chrono::milliseconds headTimeout = std::chrono::seconds(60);
    /// How long the body of the response may take.
    std::chrono::milliseconds bodyTimeout = std::chrono::minutes(5);
    /// The request does not identify the customer: it has no cookies and no credentials from its
    /// address. Therefore redirects may lead to other origins. Anonymous requests use a separate
    /// thread, so that downloads do not delay conversations, and accept no compression.
    bool isAnonymous = false;
    /// The backend, for an anonymous request for a URL from a message: the request and its
    /// redirects reach only the hosts that mayReach() allows. If empty, they may reach any host.
    QUrl backend = {};
    /// In bytes after decompression; the request fails with a longer body.
    qsizetype maximumBodySize = 104'857'600;
};

struct TOLVANE_AUTOTEST_EXPORT UrlResponse
{
    int status = 0;
    HttpHeaders headers;
    QByteArray body;

    /// The value of a header. Its name is compared case-insensitively.
    std::optional<QByteArray> header(QByteArrayView name) const;

    /// Of headers and body, in bytes.
    qsizetype size() const;
};

/// Sends requests and receives their responses.
class UrlSession
{
public:
    UrlSession() = default;
    UrlSession(const UrlSession &) = delete;
    UrlSession &operator=(const UrlSession &) = delete;
    virtual ~UrlSession() = default;

    /// Builds the request off the caller's thread and sends it exactly once. Succeeds with any
    /// HTTP status. Because requests carry the API key, redirects are followed on the same origin
    /// only, unless the request is anonymous. A request with a body is never sent again. A redirect
    /// that is not followed is the response. Fails with UrlError, or with the exception of `build`.
    /// Safe from any thread.
    virtual QFuture<UrlResponse> send(std::function<UrlRequest()> build) = 0;

    /// As send(), for an existing request.
    QFuture<UrlResponse> data(const UrlRequest &request)
    {
        return send([request] { return request; });
    }
};

/// Creates the network session, which has its own threads. Responses are held in memory completely.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<UrlSession> makeNetworkSession();

} // namespace tolvane
