// SPDX-License-Identifier: MIT
#include "agentroutes.h"

#include "agentguard.h"
#include "agentpage.h"
#include "agentrequests.h"
#include "backend.h"
#include "eventstream.h"
#include "jsonwriter.h"
#include "requests.h"

namespace tolvane::backend {

namespace {

constexpr std::string_view prefix = "/agent/api/";

// The largest bodies, in bytes; that of a message is bounded by the server's limit for all routes.
constexpr std::size_t nothing = 0;
constexpr std::size_t text = std::size_t(64) << 10;
constexpr std::size_t picture = std::size_t(4) << 20;
constexpr std::size_t message = SIZE_MAX;

// Stands for the settings among the ids of changed tickets.
const std::string settingsId;

template <typename Value>
Value found(std::optional<Value> value)
{
    if (!value)
        throw Refusal(404, "there is no such ticket");
    return std::move(*value);
}

template <typename Parse>
auto parsed(const char *what, Parse parse)
{
    try {
        return parse();
    } catch (const SettingsError &error) {
        throw Refusal(400, std::string(what) + ' ' + error.what());
    }
}

} // namespace

struct AgentRoutes::Route
{
    std::string_view method;
    std::string_view pattern;
    std::size_t largestBody;
    void (AgentRoutes::*handler)(const Call &) const;
};

const std::vector<AgentRoutes::Route> AgentRoutes::routes = {
    {"GET", "tickets", nothing, &AgentRoutes::getTickets},
    {"GET", "ticket/*", nothing, &AgentRoutes::getTicket},
    {"POST", "ticket/*", text, &AgentRoutes::changeTicket},
    {"POST", "ticket/*/message", message, &AgentRoutes::answerTicket},
    {"POST", "ticket/*/push", text, &AgentRoutes::pushToDevice},
    {"POST", "pictures", picture, &AgentRoutes::addPicture},
    {"GET", "settings", nothing, &AgentRoutes::getSettings},
    {"POST", "branding", text, &AgentRoutes::saveBranding},
    {"POST", "schedules", text, &AgentRoutes::saveSchedules},
    {"POST", "automatic", text, &AgentRoutes::saveAutomatic},
    {"GET", "events", nothing, &AgentRoutes::getEvents},
};

AgentRoutes::AgentRoutes(Backend &backend, const HttpServer &server)
    : m_backend(backend)
    , m_server(server)
{
}

bool AgentRoutes::has(const httplib::Request &request)
{
    const std::string_view address = addressOf(request);
    return address == "/" || address == "/agent" || address.starts_with("/agent/");
}

void AgentRoutes::dispatch(Call &call) const
{
    refuseStrangers(call.request);
    call.response.set_header("Cache-Control", "no-store");
    call.response.set_header("X-Content-Type-Options", "nosniff");
    call.path = pathBehind(prefix, call.request);
    if (call.path.empty())
        return answerWithPage(call);
    refuseOtherSites(call.request);
    const Route &route = routeOf(routes, call);
    if (call.body.size() > route.largestBody)
        throw Refusal(413, "the body is too large");
    (this->*route.handler)(call);
}

void AgentRoutes::getTickets(const Call &call) const
{
    call.answer(toJson(m_backend.store.cases(), surroundings(call)));
}

void AgentRoutes::getTicket(const Call &call) const
{
    const Case theCase = found(m_backend.store.conversation(call.component(1)));
    call.answer(toJson(theCase, surroundings(call)));
}

void AgentRoutes::changeTicket(const Call &call) const
{
    const std::string id = call.component(1);
    const bool changed = m_backend.store.changeTicket(id, ticketChangeIn(call.body));
    m_backend.desk.wake();
    call.answer(
        toJson(found(changed ? m_backend.store.caseOf(id) : std::nullopt), surroundings(call)));
}

void AgentRoutes::answerTicket(const Call &call) const
{
    const AgentMessage answer = agentMessageIn(call.request, call.body);
    const std::string path = answer.person ? answer.person->picture : std::string();
    if (const auto slash = path.find('/');
        !path.empty() && (slash == std::string::npos ||
                          !m_backend.store.file(path.substr(0, slash), path.substr(slash + 1))))
        throw Refusal(400, "there is no such picture");
    const Message added = found(m_backend.store.addAnswer(call.component(1), answer));
    call.answer(toJson(added, surroundings(call)));
}

void AgentRoutes::pushToDevice(const Call &call) const
{
    const HandmadePush push = pushIn(call.body);
    const std::string token = found(m_backend.store.caseOf(call.component(1))).deviceToken;
    if (token.empty())
        throw Refusal(409, "the customer has not registered a device for pushes");
    if (!m_backend.pushes.send(token, push))
        throw Refusal(413, "the push is larger than push services allow");
    call.response.status = 204;
}

void AgentRoutes::addPicture(const Call &call) const
{
    const std::string path = m_backend.store.addPicture(pictureIn(call.request, call.body));
    call.answer(toJson(std::map<std::string, std::string>{
        {"path", path}, {"url", attachmentUrl(path, surroundings(call))}}));
}

void AgentRoutes::getSettings(const Call &call) const
{
    const std::shared_ptr<const Settings> settings = m_backend.settings.now();
    Writer writer;
    writer.open('{');
    writer.key("branding");
    writer.raw(brandingAt(surroundings(call).baseUrl, settings->branding));
    writer.key("schedules");
    writer.raw(settings->schedules.json);
    writer.field("automatic", settings->answersAutomatically);
    writer.close('}');
    call.answer(writer.take());
}

void AgentRoutes::saveBranding(const Call &call) const
{
    m_backend.settings.save(parsed(
        "the branding", [&] { return editedBranding(call.body, surroundings(call).baseUrl); }));
    settingsSaved(call);
}

void AgentRoutes::saveSchedules(const Call &call) const
{
    m_backend.settings.save(parsed("the list", [&] { return parseSchedules(call.body); }));
    settingsSaved(call);
}

void AgentRoutes::saveAutomatic(const Call &call) const
{
    m_backend.settings.saveAnswersAutomatically(automaticIn(call.body));
    m_backend.desk.wake();
    settingsSaved(call);
}

void AgentRoutes::settingsSaved(const Call &call) const
{
    m_backend.changes.add(settingsId);
    getSettings(call);
}

void AgentRoutes::getEvents(const Call &call) const
{
    const auto changes = std::make_shared<ChangeStream>(m_backend.changes);
    answerWithEvents(call, m_server, changes->news(),
                     [this, changes, around = surroundings(call)](httplib::DataSink &sink) {
                         for (const std::string &id : changes->take()) {
                             if (!write(sink, eventOf(id, around)))
                                 return false;
                         }
                         return true;
                     });
}

std::string AgentRoutes::eventOf(const std::string &ticketId,
                                 const Surroundings &surroundings) const
{
    if (ticketId == settingsId)
        return "event: settings\ndata: {}\n\n";
    const std::optional<Case> theCase = m_backend.store.caseOf(ticketId);
    return theCase ? "event: ticket\ndata: " + toJson(*theCase, surroundings) + "\n\n" : ":\n\n";
}

Surroundings AgentRoutes::surroundings(const Call &call) const
{
    return {baseUrlOn(call.request.get_header_value("Host")),
            m_backend.settings.now()->schedules.json};
}

} // namespace tolvane::backend
