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
    /// How long nothing may arrive or leave before the request has timed out.
    std::chrono::milliseconds timeout = std::chrono::seconds(60);
    /// Nothing in it tells who asks: no cookies, and no name and password from its address. In turn
    /// redirects may lead to other origins. These requests have connections of their own, so that
    /// slow downloads hold up no conversation.
    bool isAnonymous = false;
    /// In bytes, counted after decompression; a longer answer is a failure.
    qsizetype maximumBodySize = 104'857'600;
};

struct TOLVANE_AUTOTEST_EXPORT UrlResponse
{
    int status = 0;
    HttpHeaders headers;
    QByteArray body;

    /// The value of a header, whose name is compared without regard to case.
    std::optional<QByteArray> header(QByteArrayView name) const;
};

/// Brings requests to their answers.
class UrlSession
{
public:
    UrlSession() = default;
    UrlSession(const UrlSession &) = delete;
    UrlSession &operator=(const UrlSession &) = delete;
    virtual ~UrlSession() = default;

    /// Has the request built off the caller's thread, and sends it once, never a second time by
    /// itself. Any answer with an HTTP status is a response. Redirects are followed on the same
    /// origin only, since requests carry the API key, unless the request is anonymous; others are
    /// the response. Fails with UrlError, or with what `build` throws. Safe from any thread.
    virtual QFuture<UrlResponse> send(std::function<UrlRequest()> build) = 0;

    /// As send(), for a request at hand.
    QFuture<UrlResponse> data(const UrlRequest &request)
    {
        return send([request] { return request; });
    }
};

/// The session on the network, on a thread of its own. Responses are held whole in memory.
TOLVANE_AUTOTEST_EXPORT std::unique_ptr<UrlSession> makeNetworkSession();

} // namespace tolvane
