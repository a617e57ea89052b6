// SPDX-License-Identifier: MIT
#include "platform/urlsession.h"

#include "platform/errors.h"
#include "platform/eventloopthread.h"
#include "platform/transfer.h"

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

namespace {

class NetworkSession final : public UrlSession
{
public:
    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override
    {
        auto promise = std::make_shared<QPromise<UrlResponse>>();
        promise->start();
        QFuture<UrlResponse> response = promise->future();
        m_thread.post([this, promise, build = std::move(build)] {
            try {
                (new Transfer(manager(), build(), promise))->begin();
            } catch (...) {
                promise->setException(std::current_exception());
                promise->finish();
            }
        });
        return response;
    }

private:
    QNetworkAccessManager &manager()
    {
        // The thread may have ended with an application object and begun anew with the next.
        if (!m_manager)
            m_manager = new QNetworkAccessManager(m_thread.context());
        return *m_manager;
    }

    EventLoopThread m_thread{QStringLiteral("tolvane-network")};
    QPointer<QNetworkAccessManager> m_manager;
};

} // namespace

std::unique_ptr<UrlSession> makeNetworkSession()
{
    return std::make_unique<NetworkSession>();
}

} // namespace tolvane
