// SPDX-License-Identifier: MIT
#include "server.h"

#include "errors.h"
#include "requests.h"
#include "text.h"

#include <algorithm>
#include <cstdio>

namespace tolvane::backend {

namespace {

constexpr const char *json = "application/json";
constexpr std::string_view prefix = "/api/";
constexpr const char *forever = "public, max-age=31536000, immutable";

// How often a stream without news shows that it is still there.
constexpr std::chrono::seconds heartbeat{15};

std::string baseUrlOn(const std::string &authority)
{
    return "http://" + authority + "/api";
}

void setError(httplib::Response &response, int status, const std::string &reason)
{
    response.status = status;
    response.set_content(toJson(std::map<std::string, std::string>{{"error", reason}}), json);
}

// The components behind the prefix, still encoded; "*" in a route stands for any one of them.
using Path = std::vector<std::string_view>;

Path pathOf(const httplib::Request &request)
{
    const std::string_view target = request.target;
    const std::string_view path = target.substr(0, target.find('?'));
    return path.starts_with(prefix) ? split(path.substr(prefix.size()), '/') : Path();
}

bool matches(const Path &path, std::string_view pattern)
{
    const Path expected = split(pattern, '/');
    return std::equal(path.begin(), path.end(), expected.begin(), expected.end(),
                      [](std::string_view component, std::string_view wanted) {
                          return wanted == "*" ? !component.empty() : component == wanted;
                      });
}

bool write(httplib::DataSink &sink, const std::string &text)
{
    return sink.write(text.data(), text.size());
}

// HEAD is GET whose body httplib keeps back.
std::string_view methodOf(const httplib::Request &request)
{
    return request.method == "HEAD" ? std::string_view("GET") : std::string_view(request.method);
}

} // namespace

struct Server::Call
{
    const httplib::Request &request;
    httplib::Response &response;
    const std::string &body;
    Path path;
    std::string customer;

    std::string component(std::size_t place) const { return percentDecoded(path.at(place)); }
    void answer(const std::string &text) const { response.set_content(text, json); }
};

// Addresses that stand in messages are fetched without a key, and by nobody in particular; a device
// may be any customer's.
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
    {"GET", "pictures/*", Access::Public, &Server::getPicture},
    {"GET", "push/*", Access::Key, &Server::getPushes},
};

Server::Server(Setup setup, Settings settings, Store &store, Desk &desk, Pushes &pushes)
    : m_setup(std::move(setup))
    , m_settings(std::move(settings))
    , m_store(store)
    , m_desk(desk)
    , m_pushes(pushes)
{
    installHandlers();
}

void Server::bind()
{
    m_port = m_http.bind(m_setup.host, m_setup.port);
    if (m_port <= 0)
        throw StartError("cannot listen on " + m_setup.host + " port " +
                         std::to_string(m_setup.port) +
                         ": another program has it, or the address is not this machine's; choose "
                         "another --port (0 picks a free one) or --host");
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

// httplib's own routing matches with regular expressions and reads a body without a bound, so that
// one handler takes every request and routes it here.
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
        // What is too much is read and dropped: a client hears the answer once it has sent it all.
        const bool complete = reader([&](const char *data, std::size_t size) {
            fits = fits && body.size() + size <= m_setup.maxBody;
            if (fits)
                body.append(data, size);
            return true;
        });
        if (!complete)
            setError(response, 400, "the body is cut short");
        else if (request.has_header(bodyEncoding))
            setError(response, 415, "the body has to come without a Content-Encoding");
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
    Call call{request, response, body, pathOf(request), {}};
    const Route &route = routeOf(call);
    if (route.access != Access::Public)
        authorise(request);
    if (route.access == Access::Customer) {
        call.customer = customerOf(request);
        response.set_header(customerHeader, call.customer);
    }
    (this->*route.handler)(call);
}

const Server::Route &Server::routeOf(const Call &call)
{
    std::string allowed;
    for (const Route &route : routes) {
        if (!matches(call.path, route.pattern))
            continue;
        if (route.method == methodOf(call.request))
            return route;
        allowed += (allowed.empty() ? "" : ", ") + std::string(route.method);
    }
    if (allowed.empty())
        throw Refusal(404, "there is no such address");
    call.response.set_header("Allow", allowed);
    throw Refusal(405, "the address does not take " + call.request.method);
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
        throw Refusal(401, "the Authorization header has to hold a known bearer key");
}

Surroundings Server::surroundings(const httplib::Request &request) const
{
    return {baseUrlOn(hostOf(request, authority())), m_settings.schedules};
}

void Server::getSettings(Call &call) const
{
    if (queryItem(call.request, "updatedAt") == m_settings.brandingUpdatedAt)
        call.response.status = 304;
    else
        call.answer(replaced(m_settings.branding, "{base}", surroundings(call.request).baseUrl));
}

void Server::createTicket(Call &call) const
{
    const Ticket ticket = m_desk.open(call.customer, newTicketIn(call.request, call.body));
    call.answer(toJson(ticket, surroundings(call.request)));
}

void Server::postMessage(Call &call) const
{
    const std::optional<Message> message =
        m_desk.post(call.customer, call.component(1), newMessageIn(call.request, call.body));
    if (!message)
        throw Refusal(404, "there is no such ticket");
    call.answer(toJson(*message, surroundings(call.request)));
}

void Server::getTicket(Call &call) const
{
    const std::optional<Ticket> ticket = m_store.readTicket(call.customer, call.component(1));
    if (!ticket)
        throw Refusal(404, "there is no such ticket");
    call.answer(toJson(*ticket, surroundings(call.request)));
}

void Server::getTickets(Call &call) const
{
    call.answer(toJson(m_store.previews(call.customer), surroundings(call.request)));
}

void Server::updateCustomer(Call &call) const
{
    m_store.updateCustomer(call.customer, customerUpdateIn(call.body));
    call.response.status = 204;
}

void Server::updateDevice(Call &call) const
{
    m_store.updateCustomer(call.customer, deviceUpdateIn(call.body));
    call.response.status = 204;
}

void Server::getAttachment(Call &call) const
{
    const std::string hash = call.component(1);
    const std::optional<StoredFile> file = m_store.file(hash, call.component(2));
    if (!file)
        throw Refusal(404, "there is no such attachment");
    const std::string tag = '"' + hash + '"';
    call.response.set_header("ETag", tag);
    call.response.set_header("Cache-Control", forever);
    call.response.set_header("X-Content-Type-Options", "nosniff");
    // A page that a customer uploads must not act in a browser as one of this origin.
    call.response.set_header("Content-Security-Policy", "sandbox; default-src 'none'");
    const std::string known = call.request.get_header_value("If-None-Match");
    if (known == "*" || known.find(tag) != std::string::npos)
        call.response.status = 304;
    else
        call.response.set_content(file->bytes, file->mimeType);
}

void Server::getPortrait(Call &call) const
{
    call.response.set_content(m_settings.portrait, "image/png");
}

void Server::getPicture(Call &call) const
{
    const std::optional<StoredFile> picture = m_store.picture(call.component(1));
    if (!picture)
        throw Refusal(404, "there is no such picture");
    call.response.set_content(picture->bytes, picture->mimeType);
}

void Server::getPushes(Call &call) const
{
    const auto pushes =
        std::make_shared<PushStream>(m_pushes, call.component(1), lastPushOf(call.request));
    const int connection = std::stoi(call.request.get_header_value(connectionId));
    call.response.set_header("Cache-Control", "no-store");
    call.response.set_chunked_content_provider(
        "text/event-stream", [this, pushes, connection, around = surroundings(call.request)](
                                 std::size_t, httplib::DataSink &sink) {
            return continuePushes(*pushes, around, connection, sink);
        });
}

bool Server::continuePushes(PushStream &pushes, const Surroundings &surroundings, int connection,
                            httplib::DataSink &sink) const
{
    while (const std::optional<NumberedPush> push = pushes.next()) {
        const std::string event = "id: " + std::to_string(push->number) +
                                  "\ndata: " + toJson(push->push, surroundings) + "\n\n";
        if (!write(sink, event))
            return false;
        pushes.confirm(push->number);
    }
    switch (m_http.awaitEvent(pushes.news(), connection, heartbeat)) {
    case HttpServer::Awaited::End:
        sink.done();
        return true;
    case HttpServer::Awaited::Timeout:
        return write(sink, ":\n\n");
    case HttpServer::Awaited::News:
        break;
    }
    return true;
}

} // namespace tolvane::backend
