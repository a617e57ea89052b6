// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/listupdate.h"
#include "base/privateexport.h"
#include "platform/async/clock.h"

#include <tolvane/loadingstate.h>

#include <QCoroTask>
#include <QtCore/QObject>
#include <QtCore/QSet>

#include <memory>
#include <optional>
#include <stop_token>

namespace tolvane {

/// The customer's tickets, in the backend's order. A running operation keeps the store alive.
/// A failure is kept in the state. Main thread.
class TOLVANE_PRIVATE_EXPORT TicketsData final : public QObject,
                                                 public std::enable_shared_from_this<TicketsData>
{
    Q_OBJECT

public:
    using Tickets = QList<TicketPreviewDto>;
    using State = LoadingState<Tickets>;

    TicketsData() = default;
    ~TicketsData() override;

    const State &state() const { return m_state; }
    /// From the list before to that of the state, when changed() announces a fetched list. Workers
    /// have compared them.
    const ListUpdate<TicketPreviewDto> &update() const { return m_update; }
    /// The list at the beginning of the last load().
    const std::optional<Tickets> &lastValue() const { return m_lastValue; }

    /// Loads with the state `loading`. Never throttled.
    QCoro::Task<> load();

    /// Refreshes without a loading state, at most once a second. A call within that second is
    /// delayed by a second, and replaces a call that is already delayed.
    QCoro::Task<> reload();

    /// The refresh itself. A failure replaces the list with the error.
    QCoro::Task<> silentReload();

Q_SIGNALS:
    void changed();

private:
    static constexpr std::chrono::seconds minimumReloadInterval{1};

    struct Arrival
    {
        ListUpdate<TicketPreviewDto> update;
        QSet<QString> unread;
    };

    QCoro::Task<> fetch(QString failurePhrase);
    QCoro::Task<Arrival> compare(Tickets fetched) const;
    void setTickets(ListUpdate<TicketPreviewDto> update);
    QCoro::Task<> reloadLater(std::stop_token stop);
    void setState(State state);

    State m_state;
    /// The last list that was fetched. It stays while another one is loaded, and after a failure.
    Tickets m_tickets;
    ListUpdate<TicketPreviewDto> m_update;
    /// Responses that have arrived, and the latest one that has been applied.
    int m_arrivalCount = 0;
    int m_lastApplied = 0;
    std::optional<Tickets> m_lastValue = Tickets();
    std::stop_source m_reloadTask{std::nostopstate};
    std::optional<Clock::Instant> m_lastReloadTime;
};

} // namespace tolvane
