// SPDX-License-Identifier: MIT
#include "api/server.h"

#include "api/requests.h"
#include "base/errors.h"
#include "base/recordjson.h"
#include "base/text.h"
#include "http/requestguard.h"

#include <cstdio>

namespace tolvane::backend {

namespace {

constexpr std::string_view prefix = "/api/";
constexpr const char *immutable = "public, max-age=31536000, immutable";

} // namespace

// Clients load URLs in messages without a key and without a customer id. A device's pushes need no
// customer id either, because a device may belong to any customer.
enum class Access { Public, Key, Customer };

struct Server::Route
{
    std::string_view method;
    std::string_view pattern;
    Access access;
    void (Server::*handler)(RequestContext &) const;
};

const std::vector<Server::Route> Server::routes = {
    {"GET", "settings", Access::Customer, &Server::getSettings},
    {"POST", "ticket/create", Access::Customer, &Server::createTicket},
    {"POST", "ticket/*", Access::Customer, &Server::postMessage},
    {"GET", "ticket/*", Access::Customer, &Server::getTicket},
    {"GET", "tickets", Access::Customer, &Server::getTickets},
    {"POST", "customer/update", Access::Customer, &Server::updateCustomer},
    {"POST", "customer/device/update", Access::Customer, &Server::updateDevice},
    {"GET", "attachments/*/*", Access::Public, &Server::getAttachment},
    {"GET", "agents/maya.png", Access::Public, &Server::getPortrait},
    {"GET", "push/*", Access::Key, &Server::getPushes},
};

Server::Server(Setup setup, Backend &backend)
    : m_setup(std::move(setup))
    , m_backend(backend)
    , m_http(m_setup.maxBody,
             [this](const Request &request, Response &response) { handle(request, response); })
    , m_agents(backend)
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

void Server::handle(const Request &request, Response &response) const
{
    try {
        if (request.hasHeader("Content-Encoding"))
            throw HttpError(415, "Content-Encoding is not supported");
        if (request.isTooLarge)
            throw HttpError(413, "the body is too large");
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
    RequestContext context{request, response};
    if (AgentRoutes::handles(request))
        return m_agents.dispatch(context);
    rejectForeignPages(request, m_setup.host);
    context.path = componentsAfter(prefix, request);
    const Route &route = findRoute(routes, context);
    if (route.access != Access::Public)
        authorise(request);
    if (route.access == Access::Customer) {
        context.customer = customerIdOf(request);
        response.setHeader(customerHeader, context.customer);
    }
    (this->*route.handler)(context);
}

void Server::authorise(const Request &request) const
{
    constexpr std::string_view scheme = "Bearer ";
    const std::string header = request.header("Authorization");
    const std::string_view value = header;
    const bool isBearer = equalIgnoringCase(value.substr(0, scheme.size()), scheme);
    const std::string_view key = isBearer ? trimmed(value.substr(scheme.size())) : "";
    // Hashes are compared, so that keys cannot be guessed by timing.
    bool known = m_setup.keys.empty();
    for (const std::string &candidate : m_setup.keys)
        known |= isBearer && sha256Hex(key) == sha256Hex(candidate);
    if (!known)
        throw HttpError(401, "the Authorization header has to contain a known bearer key");
}

std::string Server::baseUrlOf(const Request &request) const
{
    return baseUrlFor(hostOf(request, authority()));
}

void Server::respondWith(const Ticket &ticket, const RequestContext &context) const
{
    Json json = toJson(ticket, baseUrlOf(context.request));
    json["schedules"] = m_backend.settings.current()->schedules;
    context.respond(json);
}

void Server::getSettings(RequestContext &context) const
{
    const std::shared_ptr<const Settings> settings = m_backend.settings.current();
    if (queryItem(context.request, QStringLiteral("updatedAt")) ==
        settings->branding.at("updatedAt").get<std::string>())
        context.response.status = 304;
    else
        context.respond(brandingJson(settings->branding, baseUrlOf(context.request)));
}

void Server::createTicket(RequestContext &context) const
{
    const Ticket ticket =
        m_backend.replyScheduler.createTicket(context.customer, parseNewTicket(context.request));
    respondWith(ticket, context);
}

void Server::postMessage(RequestContext &context) const
{
    const std::optional<Message> message = m_backend.replyScheduler.addMessage(
        context.customer, context.pathComponent(1), parseNewMessage(context.request));
    if (!message)
        throw HttpError(404, "there is no such ticket");
    context.respond(toJson(*message, baseUrlOf(context.request)));
}

void Server::getTicket(RequestContext &context) const
{
    const std::optional<Ticket> ticket =
        m_backend.store.readTicket(context.customer, context.pathComponent(1));
    if (!ticket)
        throw HttpError(404, "there is no such ticket");
    respondWith(*ticket, context);
}

void Server::getTickets(RequestContext &context) const
{
    context.respond(toJson(m_backend.store.previews(context.customer), baseUrlOf(context.request)));
}

void Server::updateCustomer(RequestContext &context) const
{
    m_backend.store.updateCustomer(context.customer, parseCustomerUpdate(context.request.body));
    context.response.status = 204;
}

void Server::updateDevice(RequestContext &context) const
{
    m_backend.store.updateCustomer(context.customer, parseDeviceUpdate(context.request.body));
    context.response.status = 204;
}

void Server::getAttachment(RequestContext &context) const
{
    const std::string hash = context.pathComponent(1);
    const std::optional<StoredFile> file = m_backend.store.file(hash, context.pathComponent(2));
    if (!file)
        throw HttpError(404, "there is no such attachment");
    const std::string tag = '"' + hash + '"';
    context.response.setHeader("ETag", tag);
    context.response.setHeader("Cache-Control", immutable);
    context.response.setHeader("X-Content-Type-Options", "nosniff");
    // An HTML page that a customer uploads must not run with this origin's access in a browser.
    context.response.setHeader("Content-Security-Policy", "sandbox; default-src 'none'");
    const std::string known = context.request.header("If-None-Match");
    if (known == "*" || known.find(tag) != std::string::npos)
        context.response.status = 304;
    else
        context.response.setContent(file->bytes, file->mimeType);
}

void Server::getPortrait(RequestContext &context) const
{
    context.response.setContent(asset("maya.png"), "image/png");
}

void Server::getPushes(RequestContext &context) const
{
    context.response.setEvents(
        std::make_shared<PushStream>(m_backend.pushService, context.pathComponent(1),
                                     lastEventIdOf(context.request), baseUrlOf(context.request)));
}

} // namespace tolvane::backend
