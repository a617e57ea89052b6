// SPDX-License-Identifier: MIT
#pragma once

#include "platform/platform.h"

#include <QtCore/QTemporaryDir>

namespace tolvane::bench {

/// Answers requests on the worker pool, like a network without latency.
class WorkerSession final : public UrlSession
{
public:
    explicit WorkerSession(std::function<QByteArray(const UrlRequest &)> handler)
        : m_handler(std::move(handler))
    {
    }

    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override
    {
        return platform().workers->run([handler = m_handler, build] {
            const QByteArray body = handler(build());
            // A copy of the bytes, because a network shares no memory either.
            return UrlResponse{
                .status = 200, .headers = {}, .body = QByteArray(body.constData(), body.size())};
        });
    }

private:
    /// Returns the body of the response. Called on any thread.
    std::function<QByteArray(const UrlRequest &)> m_handler;
};

/// Installs the production platform with another network, and with caches in a temporary folder.
class HostPlatform
{
public:
    explicit HostPlatform(std::unique_ptr<UrlSession> session)
    {
        auto installed = std::make_unique<Platform>(makeProductionPlatform());
        installed->urlSession = std::move(session);
        installed->makeUrlCache = [this](UrlCache::Settings settings) {
            settings.diskPath = m_caches.filePath(settings.diskPath);
            return makeUrlCache(settings);
        };
        exchangePlatform(std::move(installed));
    }

private:
    const QTemporaryDir m_caches;
};

} // namespace tolvane::bench
