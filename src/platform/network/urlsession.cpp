// SPDX-License-Identifier: MIT
#include "platform/network/urlsession.h"

#include "base/errors.h"
#include "platform/async/eventloopthread.h"
#include "platform/network/bufferedsockets.h"
#include "platform/network/transfer.h"

#include <QtCore/QPointer>
#include <QtCore/QPromise>
#include <QtNetwork/QNetworkAccessManager>

namespace tolvane {

std::optional<QByteArray> UrlResponse::header(QByteArrayView name) const
{
    for (const auto &[key, value] : headers) {
        if (key.compare(name, Qt::CaseInsensitive) == 0)
            return value;
    }
    return std::nullopt;
}

qsizetype UrlResponse::size() const
{
    qsizetype size = body.size();
    for (const auto &[key, value] : headers)
        size += key.size() + value.size();
    return size;
}

namespace {

/// A thread with its own connections.
struct NetworkThread
{
    explicit NetworkThread(const QString &name)
        : thread(name)
    {
    }

    EventLoopThread thread;
    QPointer<QNetworkAccessManager> manager;

    void begin(UrlRequest request, std::shared_ptr<QPromise<UrlResponse>> promise)
    {
        // The thread ends with the application object, and starts again with the next one.
        if (!manager) {
            manager = new QNetworkAccessManager(thread.context());
            manager->setProxyFactory(new BufferedSockets);
        }
        (new Transfer(*manager, std::move(request), std::move(promise)))->begin();
    }
};

class NetworkSession final : public UrlSession
{
public:
    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override
    {
        auto promise = std::make_shared<QPromise<UrlResponse>>();
        promise->start();
        QFuture<UrlResponse> response = promise->future();
        m_backend.thread.post([this, promise, build = std::move(build)] {
            try {
                begin(build(), promise);
            } catch (...) {
                promise->setException(std::current_exception());
                promise->finish();
            }
        });
        return response;
    }

private:
    void begin(UrlRequest request, std::shared_ptr<QPromise<UrlResponse>> promise)
    {
        if (!request.isAnonymous)
            return m_backend.begin(std::move(request), std::move(promise));
        m_downloads.thread.post([this, request = std::move(request), promise = std::move(promise)] {
            m_downloads.begin(request, promise);
        });
    }

    // Destroyed last: the backend's thread posts to it.
    NetworkThread m_downloads{QStringLiteral("tolvane-downloads")};
    NetworkThread m_backend{QStringLiteral("tolvane-network")};
};

} // namespace

std::unique_ptr<UrlSession> makeNetworkSession()
{
    return std::make_unique<NetworkSession>();
}

} // namespace tolvane
