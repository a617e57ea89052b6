// SPDX-License-Identifier: MIT
#include "page/agentroutes.h"

#include "api/requests.h"
#include "backend.h"
#include "base/recordjson.h"
#include "http/requestguard.h"
#include "page/agentpage.h"
#include "page/agentrequests.h"

namespace tolvane::backend {

namespace {

constexpr std::string_view prefix = "/agent/api/";

// The largest bodies, in bytes; that of a message is bounded by the server's limit for all routes.
constexpr std::size_t noBody = 0;
constexpr std::size_t textBody = std::size_t(64) << 10;
constexpr std::size_t pictureBody = std::size_t(4) << 20;
constexpr std::size_t messageBody = SIZE_MAX;

// Stands for the settings among the ids of changed tickets.
const std::string settingsId;

template <typename Value>
Value orNotFound(std::optional<Value> value)
{
    if (!value)
        throw HttpError(404, "there is no such ticket");
    return std::move(*value);
}

} // namespace

struct AgentRoutes::Route
{
    std::string_view method;
    std::string_view pattern;
    std::size_t largestBody;
    void (AgentRoutes::*handler)(const RequestContext &) const;
};

const std::vector<AgentRoutes::Route> AgentRoutes::routes = {
    {"GET", "tickets", noBody, &AgentRoutes::getTickets},
    {"GET", "ticket/*", noBody, &AgentRoutes::getTicket},
    {"POST", "ticket/*", textBody, &AgentRoutes::changeTicket},
    {"POST", "ticket/*/message", messageBody, &AgentRoutes::postMessage},
    {"POST", "ticket/*/push", textBody, &AgentRoutes::pushToDevice},
    {"POST", "pictures", pictureBody, &AgentRoutes::addPicture},
    {"GET", "settings", noBody, &AgentRoutes::getSettings},
    {"POST", "branding", textBody, &AgentRoutes::saveBranding},
    {"POST", "schedules", textBody, &AgentRoutes::saveSchedules},
    {"POST", "automatic", textBody, &AgentRoutes::saveAutomatic},
    {"GET", "events", noBody, &AgentRoutes::getEvents},
};

AgentRoutes::AgentRoutes(Backend &backend)
    : m_backend(backend)
{
}

bool AgentRoutes::handles(const Request &request)
{
    const std::string_view path = pathOf(request);
    return path == "/" || path == "/agent" || path.starts_with("/agent/");
}

void AgentRoutes::dispatch(RequestContext &context) const
{
    rejectRemoteRequests(context.request);
    context.response.setHeader("Cache-Control", "no-store");
    context.response.setHeader("X-Content-Type-Options", "nosniff");
    context.path = componentsAfter(prefix, context.request);
    if (context.path.empty())
        return respondWithPage(context);
    rejectCrossSiteRequests(context.request);
    const Route &route = findRoute(routes, context);
    if (context.request.body.size() > route.largestBody)
        throw HttpError(413, "the body is too large");
    (this->*route.handler)(context);
}

void AgentRoutes::getTickets(const RequestContext &context) const
{
    context.respond(toJson(m_backend.store.agentTickets(), baseUrlOf(context)));
}

void AgentRoutes::getTicket(const RequestContext &context) const
{
    const AgentTicket ticket =
        orNotFound(m_backend.store.agentConversation(context.pathComponent(1)));
    context.respond(toJson(ticket, baseUrlOf(context)));
}

void AgentRoutes::changeTicket(const RequestContext &context) const
{
    const std::string id = context.pathComponent(1);
    const bool changed = m_backend.store.changeTicket(id, parseTicketChange(context.request.body));
    m_backend.replyScheduler.wake();
    context.respond(toJson(orNotFound(changed ? m_backend.store.agentTicket(id) : std::nullopt),
                           baseUrlOf(context)));
}

void AgentRoutes::postMessage(const RequestContext &context) const
{
    const AgentMessage message = parseAgentMessage(context.request);
    const std::string path = message.person ? message.person->picture : std::string();
    if (const auto slash = path.find('/');
        !path.empty() && (slash == std::string::npos ||
                          !m_backend.store.file(path.substr(0, slash), path.substr(slash + 1))))
        throw HttpError(400, "there is no such picture");
    const Message added =
        orNotFound(m_backend.store.addAgentMessage(context.pathComponent(1), message));
    context.respond(toJson(added, baseUrlOf(context)));
}

void AgentRoutes::pushToDevice(const RequestContext &context) const
{
    const CustomPush push = parsePush(context.request.body);
    const std::string token =
        orNotFound(m_backend.store.agentTicket(context.pathComponent(1))).deviceToken;
    if (token.empty())
        throw HttpError(409, "the customer has not registered a device for pushes");
    if (!m_backend.pushService.send(token, push))
        throw HttpError(413, "the push is larger than push services allow");
    context.response.status = 204;
}

void AgentRoutes::addPicture(const RequestContext &context) const
{
    const std::string path = m_backend.store.addPicture(parsePicture(context.request));
    context.respond({{"path", path}, {"url", attachmentUrl(path, baseUrlOf(context))}});
}

void AgentRoutes::getSettings(const RequestContext &context) const
{
    const std::shared_ptr<const Settings> settings = m_backend.settings.current();
    context.respond({{"branding", brandingJson(settings->branding, baseUrlOf(context))},
                     {"schedules", settings->schedules},
                     {"automatic", settings->repliesAutomatically}});
}

void AgentRoutes::saveBranding(const RequestContext &context) const
{
    m_backend.settings.saveBranding(parseEditedBranding(context.request.body, baseUrlOf(context)));
    respondAfterSave(context);
}

void AgentRoutes::saveSchedules(const RequestContext &context) const
{
    m_backend.settings.saveSchedules(parseSchedules(context.request.body));
    respondAfterSave(context);
}

void AgentRoutes::saveAutomatic(const RequestContext &context) const
{
    m_backend.settings.saveRepliesAutomatically(parseAutomatic(context.request.body));
    m_backend.replyScheduler.wake();
    respondAfterSave(context);
}

void AgentRoutes::respondAfterSave(const RequestContext &context) const
{
    m_backend.changeNotifier.notify(settingsId);
    getSettings(context);
}

void AgentRoutes::getEvents(const RequestContext &context) const
{
    context.response.setEvents(std::make_shared<ChangeStream>(
        m_backend.changeNotifier, [this, baseUrl = baseUrlOf(context)](const std::string &id) {
            return eventOf(id, baseUrl);
        }));
}

std::string AgentRoutes::eventOf(const std::string &ticketId, const std::string &baseUrl) const
{
    if (ticketId == settingsId)
        return "event: settings\ndata: {}\n\n";
    const std::optional<AgentTicket> ticket = m_backend.store.agentTicket(ticketId);
    return ticket ? "event: ticket\ndata: " + toText(toJson(*ticket, baseUrl)) + "\n\n" : ":\n\n";
}

std::string AgentRoutes::baseUrlOf(const RequestContext &context) const
{
    return baseUrlFor(context.request.header("Host"));
}

} // namespace tolvane::backend
