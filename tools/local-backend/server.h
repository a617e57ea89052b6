// SPDX-License-Identifier: MIT
#pragma once

#include "desk.h"
#include "httpserver.h"
#include "json.h"
#include "pushes.h"
#include "settings.h"
#include "store.h"

#include <string>
#include <vector>

namespace tolvane::backend {

/// The routes of the contract over HTTP.
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

    Server(Setup setup, Settings settings, Store &store, Desk &desk, Pushes &pushes);

    /// Throws a StartError when the address cannot be had. Requests wait from then on.
    void bind();
    /// Like "http://127.0.0.1:8787/api".
    std::string baseUrl() const;
    /// Serves until shut down from another thread.
    bool run() { return m_http.run(); }
    void shutDown() { m_http.shutDown(); }

private:
    struct Call;
    struct Route;
    static const std::vector<Route> routes;

    /// Like "127.0.0.1:8787".
    std::string authority() const;
    void installHandlers();
    void answer(const httplib::Request &request, httplib::Response &response,
                const std::string &body) const;
    void dispatch(const httplib::Request &request, httplib::Response &response,
                  const std::string &body) const;
    static const Route &routeOf(const Call &call);
    void authorise(const httplib::Request &request) const;
    Surroundings surroundings(const httplib::Request &request) const;

    void getSettings(Call &call) const;
    void createTicket(Call &call) const;
    void postMessage(Call &call) const;
    void getTicket(Call &call) const;
    void getTickets(Call &call) const;
    void updateCustomer(Call &call) const;
    void updateDevice(Call &call) const;
    void getAttachment(Call &call) const;
    void getPortrait(Call &call) const;
    void getPicture(Call &call) const;
    void getPushes(Call &call) const;
    /// Writes the pushes there are, and waits for the next. False when the client takes no more.
    bool continuePushes(PushStream &pushes, const Surroundings &surroundings, int connection,
                        httplib::DataSink &sink) const;

    const Setup m_setup;
    const Settings m_settings;
    Store &m_store;
    Desk &m_desk;
    Pushes &m_pushes;
    HttpServer m_http;
    int m_port = 0;
};

} // namespace tolvane::backend
