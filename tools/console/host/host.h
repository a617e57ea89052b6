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

/// Stands in for a user interface: receives everything that the library reports to its host.
/// onLog() is called on any thread, everything else on the main thread.
class Listener
{
public:
    virtual ~Listener() = default;

    virtual void onLog(LogType type, const QString &line) = 0;
    virtual void onEvent(const TolvaneAnalyticsEvent &event) = 0;
    virtual void onBroadcast(const QString &name, const NotificationCenter::UserInfo &userInfo) = 0;
    virtual void onPresentation() = 0;
};

/// Installs the console's log sink and presentation. Call it before any other use of the library.
void installPlatform(Listener &listener);

/// Returns whether initialize() has been called.
bool isInitialized();

/// Holds the stores of an open user interface: the ticket list, and one for each open conversation.
class Host
{
public:
    explicit Host(Listener &listener);

    void setAnalyticsDelegate(bool enabled);

    /// Notifies the library that its user interface has opened or closed.
    static void setOpen(bool open);

    const std::shared_ptr<TicketsData> &tickets() const { return m_tickets; }

    /// The ticket's current row in the list; nullopt if the list does not contain it.
    std::optional<TicketPreviewDto> row(const QString &ticketId) const;

    /// Creates a store that observes the broadcasts until it is closed. Returns its handle.
    int open(std::optional<TicketPreviewDto> preview);
    /// Returns null for a handle that is not open.
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
