// SPDX-License-Identifier: MIT
#include "server.h"

#include "api/customerroutes.h"
#include "api/requests.h"
#include "base/errors.h"
#include "page/agentroutes.h"

#include <cstdio>

namespace tolvane::backend {

namespace {

std::string baseUrlFor(const std::string &host)
{
    return "http://" + host + "/api";
}

} // namespace

Server::Server(Setup setup, Backend &backend)
    : m_setup(std::move(setup))
    , m_backend(backend)
    , m_http(m_setup.maxBody,
             [this](const Request &request, Response &response) { handle(request, response); })
{
}

void Server::bind()
{
    m_port = m_http.bind(m_setup.host, m_setup.port);
    if (m_port <= 0)
        throw StartError("cannot listen on " + m_setup.host + " port " +
                         std::to_string(m_setup.port) +
                         ": another program uses it, or the address does not belong to this "
                         "machine; choose another --port (0 picks a free port) or --host");
}

std::string Server::baseUrl() const
{
    return baseUrlFor(authority());
}

std::string Server::authority() const
{
    const bool isV6 = m_setup.host.find(':') != std::string::npos;
    return (isV6 ? '[' + m_setup.host + ']' : m_setup.host) + ':' + std::to_string(m_port);
}

void Server::run()
{
    m_http.run([this] { return m_backend.replyScheduler.sendDueReply(); });
}

void Server::handle(const Request &request, Response &response) const
{
    try {
        dispatch(request, response);
    } catch (const HttpError &error) {
        setError(response, error.status(), error.what());
    } catch (const InputError &error) {
        setError(response, 400, std::string("the body ") + error.what());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "tolvane-backend: %s %s: %s\n", request.method.c_str(),
                     request.target.c_str(), error.what());
        setError(response, 500, "the backend failed");
    }
}

void Server::dispatch(const Request &request, Response &response) const
{
    if (request.hasHeader("Content-Encoding"))
        throw HttpError(415, "Content-Encoding is not supported");
    if (request.isTooLarge)
        throw HttpError(413, "the body is too large");
    RequestContext context{request, response, m_backend, baseUrlFor(hostOf(request, authority()))};
    if (isAgentRequest(request))
        dispatchAgentRequest(context);
    else
        dispatchCustomerRequest(context, m_setup.host, m_setup.keys);
}

} // namespace tolvane::backend
