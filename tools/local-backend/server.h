// SPDX-License-Identifier: MIT
#pragma once

#include "api/backend.h"
#include "http/httpserver.h"

namespace tolvane::backend {

/// The routes of the contract over HTTP, and those of the agents.
class Server
{
public:
    struct Setup
    {
        std::string host = "127.0.0.1";
        int port = 0;
        /// Empty: requests need no key.
        std::vector<std::string> keys;
        std::size_t maxBody = std::size_t(64) << 20;
    };

    Server(Setup setup, Backend &backend);

    /// Listens, so that requests wait for run(). Throws a StartError when the address is in use or
    /// not available.
    void bind();
    /// Like "http://127.0.0.1:8787/api".
    std::string baseUrl() const;
    /// Serves, and sends replies, until shutDown(), which any thread or the handler of a signal may
    /// call.
    void run();
    void shutDown() { m_http.shutDown(); }

private:
    /// Like "127.0.0.1:8787".
    std::string authority() const;
    void handle(const Request &request, Response &response) const;
    void dispatch(const Request &request, Response &response) const;

    const Setup m_setup;
    Backend &m_backend;
    HttpServer m_http;
    int m_port = 0;
};

} // namespace tolvane::backend
