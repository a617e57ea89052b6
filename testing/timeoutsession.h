// SPDX-License-Identifier: MIT
#pragma once

#include "platform/network/urlsession.h"

namespace tolvane::test {

/// Wraps a session and overrides the timeout of its requests.
class TimeoutSession final : public UrlSession
{
public:
    explicit TimeoutSession(std::unique_ptr<UrlSession> session)
        : m_session(std::move(session))
    {
    }

    QFuture<UrlResponse> send(std::function<UrlRequest()> build) override
    {
        return m_session->send([build, timeout = timeout] {
            UrlRequest request = build();
            request.timeout = timeout;
            return request;
        });
    }

    std::chrono::milliseconds timeout = std::chrono::seconds(60);

private:
    std::unique_ptr<UrlSession> m_session;
};

} // namespace tolvane::test
