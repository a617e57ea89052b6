// SPDX-License-Identifier: MIT
#pragma once

#include "platform/async/notificationcenter.h"
#include "platform/system/logsink.h"
#include "state/ticketdata.h"
#include "state/ticketsdata.h"

#include <tolvane/analytics.h>

#include <functional>
#include <map>
#include <memory>

namespace tolvane::console {

/// Takes the place of a user interface: receives what a host sees of the library. Lines of the log
/// come on any thread, everything else on the main thread.
class Listener
{
public:
    virtual ~Listener() = default;

    virtual void onLog(LogType type, const QString &line) = 0;
    virtual void onEvent(const TolvaneAnalyticsEvent &event) = 0;
    virtual void onBroadcast(const QString &name, const NotificationCenter::UserInfo &userInfo) = 0;
    virtual void onPresentation() = 0;
};

/// Puts the console's ends of the platform in place; before anything else of the library is used.
void installPlatform(Listener &listener);

/// True when initialize() has been called.
bool isInitialized();

/// What a host with an open interface holds: the list, and a store for each conversation on show.
class Host
{
public:
    explicit Host(Listener &listener);

    void setAnalyticsDelegate(bool enabled);

    /// Tells the library whether its interface is on show.
    static void setOpen(bool open);

    const std::shared_ptr<TicketsData> &tickets() const { return m_tickets; }

    /// The row of a ticket in the list as it is now; absent when there is none.
    std::optional<TicketPreviewDto> row(const QString &ticketId) const;

    /// A new store, which takes part in the broadcasts until it is closed.
    int open(std::optional<TicketPreviewDto> preview);
    /// Null for a handle that is not open.
    std::shared_ptr<TicketData> ticket(int handle) const;
    void close(int handle);

private:
    struct OpenTicket
    {
        std::shared_ptr<TicketData> store;
        NotificationCenter::Observation observation;
    };

    std::shared_ptr<TolvaneAnalyticsDelegate> m_delegate;
    std::vector<NotificationCenter::Observation> m_broadcasts;
    std::shared_ptr<TicketsData> m_tickets = std::make_shared<TicketsData>();
    std::map<int, OpenTicket> m_open;
    int m_lastHandle = 0;
};

} // namespace tolvane::console
