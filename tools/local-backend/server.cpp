// SPDX-License-Identifier: MIT
#include "server.h"

#include "errors.h"
#include "eventstream.h"
#include "requests.h"
#include "text.h"

#include <cstdio>

namespace tolvane::backend {

namespace {

constexpr std::string_view prefix = "/api/";
constexpr const char *forever = "public, max-age=31536000, immutable";

} // namespace

// Clients load URLs in messages without a key and without a customer id. A device's pushes need no
// customer id either, because a device may belong to any customer.
enum class Access { Public, Key, Customer };

struct Server::Route
{
    std::string_view method;
    std::string_view pattern;
    Access access;
    void (Server::*handler)(Call &) const;
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
    , m_agents(backend, m_http)
{
    installHandlers();
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
    return baseUrlOn(authority());
}

std::string Server::authority() const
{
    const bool isV6 = m_setup.host.find(':') != std::string::npos;
    return (isV6 ? '[' + m_setup.host + ']' : m_setup.host) + ':' + std::to_string(m_port);
}

// Handles all requests itself, because httplib's routing matches with regular expressions and reads
// bodies of any size into memory.
void Server::installHandlers()
{
    constexpr const char *everything = R"([\s\S]*)";
    const auto bodiless = [this](const httplib::Request &request, httplib::Response &response) {
        answer(request, response, {});
    };
    const auto withBody = [this](const httplib::Request &request, httplib::Response &response,
                                 const httplib::ContentReader &reader) {
        std::string body;
        bool fits = true;
        // The rest of a body that is too large is read and dropped: clients read the response only
        // after they have sent the whole body.
        const bool complete = reader([&](const char *data, std::size_t size) {
            fits = fits && body.size() + size <= m_setup.maxBody;
            if (fits)
                body.append(data, size);
            return true;
        });
        if (!complete)
            setError(response, 400, "the body is incomplete");
        else if (request.has_header(bodyEncoding))
            setError(response, 415, "Content-Encoding is not supported");
        else if (!fits)
            setError(response, 413, "the body is too large");
        else
            answer(request, response, body);
    };
    m_http.Get(everything, bodiless);
    m_http.Options(everything, bodiless);
    m_http.Post(everything, withBody);
    m_http.Put(everything, withBody);
    m_http.Patch(everything, withBody);
    m_http.Delete(everything, withBody);
    m_http.set_error_handler([](const httplib::Request &, httplib::Response &response) {
        if (response.body.empty())
            setError(response, response.status, "the request is malformed");
    });
}

void Server::answer(const httplib::Request &request, httplib::Response &response,
                    const std::string &body) const
{
    try {
        dispatch(request, response, body);
    } catch (const Refusal &refusal) {
        setError(response, refusal.status(), refusal.what());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "tolvane-backend: %s %s: %s\n", request.method.c_str(),
                     request.target.c_str(), error.what());
        setError(response, 500, "the backend failed");
    }
}

void Server::dispatch(const httplib::Request &request, httplib::Response &response,
                      const std::string &body) const
{
    Call call{request, response, body};
    if (AgentRoutes::has(request))
        return m_agents.dispatch(call);
    call.path = pathBehind(prefix, request);
    const Route &route = routeOf(routes, call);
    if (route.access != Access::Public)
        authorise(request);
    if (route.access == Access::Customer) {
        call.customer = customerOf(request);
        response.set_header(customerHeader, call.customer);
    }
    (this->*route.handler)(call);
}

void Server::authorise(const httplib::Request &request) const
{
    constexpr std::string_view scheme = "Bearer ";
    const std::string header = request.get_header_value("Authorization");
    const std::string_view value = header;
    const bool isBearer = equalIgnoringCase(value.substr(0, scheme.size()), scheme);
    const std::string_view key = isBearer ? trimmed(value.substr(scheme.size())) : "";
    bool known = m_setup.keys.empty();
    for (const std::string &candidate : m_setup.keys)
        known |= isBearer && equalInConstantTime(key, candidate);
    if (!known)
        throw Refusal(401, "the Authorization header has to contain a known bearer key");
}

Surroundings Server::surroundings(const httplib::Request &request) const
{
    return {baseUrlOn(hostOf(request, authority())), m_backend.settings.now()->schedules.json};
}

void Server::getSettings(Call &call) const
{
    const std::shared_ptr<const Settings> settings = m_backend.settings.now();
    if (queryItem(call.request, "updatedAt") == settings->branding.updatedAt)
        call.response.status = 304;
    else
        call.answer(brandingAt(surroundings(call.request).baseUrl, settings->branding));
}

void Server::createTicket(Call &call) const
{
    const Ticket ticket = m_backend.desk.open(call.customer, newTicketIn(call.request, call.body));
    call.answer(toJson(ticket, surroundings(call.request)));
}

void Server::postMessage(Call &call) const
{
    const std::optional<Message> message = m_backend.desk.post(
        call.customer, call.component(1), newMessageIn(call.request, call.body));
    if (!message)
        throw Refusal(404, "there is no such ticket");
    call.answer(toJson(*message, surroundings(call.request)));
}

void Server::getTicket(Call &call) const
{
    const std::optional<Ticket> ticket =
        m_backend.store.readTicket(call.customer, call.component(1));
    if (!ticket)
        throw Refusal(404, "there is no such ticket");
    call.answer(toJson(*ticket, surroundings(call.request)));
}

void Server::getTickets(Call &call) const
{
    call.answer(toJson(m_backend.store.previews(call.customer), surroundings(call.request)));
}

void Server::updateCustomer(Call &call) const
{
    m_backend.store.updateCustomer(call.customer, customerUpdateIn(call.body));
    call.response.status = 204;
}

void Server::updateDevice(Call &call) const
{
    m_backend.store.updateCustomer(call.customer, deviceUpdateIn(call.body));
    call.response.status = 204;
}

void Server::getAttachment(Call &call) const
{
    const std::string hash = call.component(1);
    const std::optional<StoredFile> file = m_backend.store.file(hash, call.component(2));
    if (!file)
        throw Refusal(404, "there is no such attachment");
    const std::string tag = '"' + hash + '"';
    call.response.set_header("ETag", tag);
    call.response.set_header("Cache-Control", forever);
    call.response.set_header("X-Content-Type-Options", "nosniff");
    // An HTML page that a customer uploads must not run with this origin's access in a browser.
    call.response.set_header("Content-Security-Policy", "sandbox; default-src 'none'");
    const std::string known = call.request.get_header_value("If-None-Match");
    if (known == "*" || known.find(tag) != std::string::npos)
        call.response.status = 304;
    else
        call.response.set_content(file->bytes, file->mimeType);
}

void Server::getPortrait(Call &call) const
{
    call.response.set_content(m_backend.settings.now()->portrait, "image/png");
}

void Server::getPushes(Call &call) const
{
    const auto pushes =
        std::make_shared<PushStream>(m_backend.pushes, call.component(1), lastPushOf(call.request));
    answerWithEvents(call, m_http, pushes->news(),
                     [pushes, around = surroundings(call.request)](httplib::DataSink &sink) {
                         while (const std::optional<NumberedPush> push = pushes->next()) {
                             const std::string event = "id: " + std::to_string(push->number) +
                                                       "\ndata: " + toJson(push->push, around) +
                                                       "\n\n";
                             if (!write(sink, event))
                                 return false;
                             pushes->confirm(push->number);
                         }
                         return true;
                     });
}

} // namespace tolvane::backend
