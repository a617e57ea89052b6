// SPDX-License-Identifier: MIT
#include "page/agentroutes.h"

#include "api/requests.h"
#include "base/recordjson.h"
#include "http/requestguard.h"
#include "page/agentpage.h"

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

struct Route
{
    std::string_view method;
    std::string_view pattern;
    std::size_t largestBody;
    void (*handler)(const RequestContext &);
};

void getTickets(const RequestContext &context)
{
    context.respond(toJson(context.backend.store.agentTickets(), context.baseUrl));
}

void getTicket(const RequestContext &context)
{
    const AgentTicket ticket =
        orNotFound(context.backend.store.agentConversation(context.pathComponent(1)));
    context.respond(toJson(ticket, context.baseUrl));
}

void changeTicket(const RequestContext &context)
{
    const std::string id = context.pathComponent(1);
    const bool changed =
        context.backend.store.changeTicket(id, parseTicketChange(context.request.body));
    context.respond(
        toJson(orNotFound(changed ? context.backend.store.agentTicket(id) : std::nullopt),
               context.baseUrl));
}

void postMessage(const RequestContext &context)
{
    const AgentMessage message = parseAgentMessage(context.request);
    const std::string path = message.person ? message.person->picture : std::string();
    if (const auto slash = path.find('/');
        !path.empty() &&
        (slash == std::string::npos ||
         !context.backend.store.file(path.substr(0, slash), path.substr(slash + 1))))
        throw HttpError(400, "there is no such picture");
    const Message added =
        orNotFound(context.backend.store.addAgentMessage(context.pathComponent(1), message));
    context.respond(toJson(added, context.baseUrl));
}

void pushToDevice(const RequestContext &context)
{
    const CustomPush push = parsePush(context.request.body);
    const std::string token =
        orNotFound(context.backend.store.agentTicket(context.pathComponent(1))).deviceToken;
    if (token.empty())
        throw HttpError(409, "the customer has not registered a device for pushes");
    if (!context.backend.pushService.send(token, push))
        throw HttpError(413, "the push is larger than push services allow");
    context.response.status = 204;
}

void addPicture(const RequestContext &context)
{
    const std::string path = context.backend.store.addPicture(parsePicture(context.request));
    context.respond({{"path", path}, {"url", attachmentUrl(path, context.baseUrl)}});
}

void getSettings(const RequestContext &context)
{
    const Settings &settings = context.backend.settings.current();
    context.respond({{"branding", brandingJson(settings.branding, context.baseUrl)},
                     {"schedules", settings.schedules},
                     {"automatic", settings.repliesAutomatically}});
}

void respondAfterSave(const RequestContext &context)
{
    context.backend.changeNotifier.notify(settingsId);
    getSettings(context);
}

void saveBranding(const RequestContext &context)
{
    context.backend.settings.saveBranding(
        parseEditedBranding(context.request.body, context.baseUrl));
    respondAfterSave(context);
}

void saveSchedules(const RequestContext &context)
{
    context.backend.settings.saveSchedules(parseSchedules(context.request.body));
    respondAfterSave(context);
}

void saveAutomatic(const RequestContext &context)
{
    context.backend.settings.saveRepliesAutomatically(parseAutomatic(context.request.body));
    context.backend.replyScheduler.wake();
    respondAfterSave(context);
}

std::string eventOf(const std::string &ticketId, Store &store, const std::string &baseUrl)
{
    if (ticketId == settingsId)
        return "event: settings\ndata: {}\n\n";
    const std::optional<AgentTicket> ticket = store.agentTicket(ticketId);
    return ticket ? "event: ticket\ndata: " + toText(toJson(*ticket, baseUrl)) + "\n\n" : ":\n\n";
}

void getEvents(const RequestContext &context)
{
    context.response.setEvents(std::make_shared<ChangeStream>(
        context.backend.changeNotifier,
        [&store = context.backend.store, baseUrl = context.baseUrl](const std::string &id) {
            return eventOf(id, store, baseUrl);
        }));
}

constexpr Route routes[] = {
    {"GET", "tickets", noBody, getTickets},
    {"GET", "ticket/*", noBody, getTicket},
    {"POST", "ticket/*", textBody, changeTicket},
    {"POST", "ticket/*/message", messageBody, postMessage},
    {"POST", "ticket/*/push", textBody, pushToDevice},
    {"POST", "pictures", pictureBody, addPicture},
    {"GET", "settings", noBody, getSettings},
    {"POST", "branding", textBody, saveBranding},
    {"POST", "schedules", textBody, saveSchedules},
    {"POST", "automatic", textBody, saveAutomatic},
    {"GET", "events", noBody, getEvents},
};

} // namespace

bool isAgentRequest(const Request &request)
{
    const std::string_view path = pathOf(request);
    return path == "/" || path == "/agent" || path.starts_with("/agent/");
}

void dispatchAgentRequest(RequestContext &context)
{
    rejectRemoteRequests(context.request);
    context.response.setHeader("Cache-Control", "no-store");
    context.response.setHeader("X-Content-Type-Options", "nosniff");
    context.path = componentsAfter(prefix, context.request);
    if (context.path.empty())
        return respondWithPage(context.request, context.response);
    rejectCrossSiteRequests(context.request);
    const Route &route = findRoute(routes, context);
    if (context.request.body.size() > route.largestBody)
        throw HttpError(413, "the body is too large");
    route.handler(context);
}

} // namespace tolvane::backend
