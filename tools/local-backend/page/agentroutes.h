// SPDX-License-Identifier: MIT
#pragma once

#include "http/routing.h"

#include <string>
#include <vector>

namespace tolvane::backend {

struct Backend;

/// The agent page, on which people reply as agents, and its API. Needs no key, but is available on
/// this machine only.
class AgentRoutes
{
public:
    explicit AgentRoutes(Backend &backend);

    static bool handles(const Request &request);
    /// Throws an HttpError.
    void dispatch(RequestContext &context) const;

private:
    struct Route;
    static const std::vector<Route> routes;

    void getTickets(const RequestContext &context) const;
    void getTicket(const RequestContext &context) const;
    void changeTicket(const RequestContext &context) const;
    void postMessage(const RequestContext &context) const;
    void pushToDevice(const RequestContext &context) const;
    void addPicture(const RequestContext &context) const;
    void getSettings(const RequestContext &context) const;
    void saveBranding(const RequestContext &context) const;
    void saveSchedules(const RequestContext &context) const;
    void saveAutomatic(const RequestContext &context) const;
    void getEvents(const RequestContext &context) const;

    void respondAfterSave(const RequestContext &context) const;
    std::string eventOf(const std::string &ticketId, const std::string &baseUrl) const;
    std::string baseUrlOf(const RequestContext &context) const;

    Backend &m_backend;
};

} // namespace tolvane::backend
