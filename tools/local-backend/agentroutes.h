// SPDX-License-Identifier: MIT
#pragma once

#include "json.h"
#include "routing.h"

#include <string>
#include <vector>

namespace tolvane::backend {

struct Backend;
class HttpServer;

/// The agent page, on which people answer as agents, and its API. Needs no key, but is available on
/// this machine only.
class AgentRoutes
{
public:
    AgentRoutes(Backend &backend, const HttpServer &server);

    static bool has(const httplib::Request &request);
    /// Throws a Refusal.
    void dispatch(Call &call) const;

private:
    struct Route;
    static const std::vector<Route> routes;

    void getTickets(const Call &call) const;
    void getTicket(const Call &call) const;
    void changeTicket(const Call &call) const;
    void answerTicket(const Call &call) const;
    void pushToDevice(const Call &call) const;
    void addPicture(const Call &call) const;
    void getSettings(const Call &call) const;
    void saveBranding(const Call &call) const;
    void saveSchedules(const Call &call) const;
    void saveAutomatic(const Call &call) const;
    void getEvents(const Call &call) const;

    void settingsSaved(const Call &call) const;
    std::string eventOf(const std::string &ticketId, const Surroundings &surroundings) const;
    Surroundings surroundings(const Call &call) const;

    Backend &m_backend;
    const HttpServer &m_server;
};

} // namespace tolvane::backend
