// SPDX-License-Identifier: MIT
#include "platform/network/urlsession.h"

#include "base/errors.h"
#include "platform/async/eventloopthread.h"
#include "platform/network/transfer.h"

#include <QtNetwork/QNetworkAccessManager>

#include <array>

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
                UrlRequest request = build();
                QNetworkAccessManager &accessManager = manager(request.isAnonymous);
                (new Transfer(accessManager, std::move(request), promise))->begin();
            } catch (...) {
                promise->setException(std::current_exception());
                promise->finish();
            }
        });
        return response;
    }

private:
    QNetworkAccessManager &manager(bool isAnonymous)
    {
        QPointer<QNetworkAccessManager> &manager = m_managers[isAnonymous ? 1 : 0];
        // The thread ends with the application object, and starts again with the next one.
        if (!manager)
            manager = new QNetworkAccessManager(m_thread.context());
        return *manager;
    }

    EventLoopThread m_thread{QStringLiteral("tolvane-network")};
    std::array<QPointer<QNetworkAccessManager>, 2> m_managers;
};

} // namespace

std::unique_ptr<UrlSession> makeNetworkSession()
{
    return std::make_unique<NetworkSession>();
}

} // namespace tolvane
