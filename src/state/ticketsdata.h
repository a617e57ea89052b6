// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/async/clock.h"

#include <tolvane/loadingstate.h>

#include <QCoroTask>
#include <QtCore/QObject>

#include <memory>
#include <optional>
#include <stop_token>

namespace tolvane {

/// The customer's tickets, in the backend's order. Main thread; a running operation keeps the store
/// alive. Failures end up in the state.
class TOLVANE_PRIVATE_EXPORT TicketsData final : public QObject,
                                                 public std::enable_shared_from_this<TicketsData>
{
    Q_OBJECT

public:
    using Tickets = QList<TicketPreviewDto>;
    using State = LoadingState<Tickets>;

    const State &state() const { return m_state; }
    /// The list that was on screen when load() last began.
    const std::optional<Tickets> &lastValue() const { return m_lastValue; }

    /// The load that shows: passes through `loading`. Never throttled.
    QCoro::Task<> load();

    /// A refresh without a loading state, at most one a second: one that comes too soon is put off
    /// by a second, and takes the place of one already put off.
    QCoro::Task<> reload();

    /// The refresh itself. One that fails replaces the list by the error.
    QCoro::Task<> silentReload();

Q_SIGNALS:
    void changed();

private:
    static constexpr std::chrono::seconds minimumReloadInterval{1};

    QCoro::Task<> fetch(QString failurePhrase);
    QCoro::Task<> reloadLater(std::stop_token stop);
    void setState(State state);

    State m_state;
    std::optional<Tickets> m_lastValue = Tickets();
    std::stop_source m_reloadTask{std::nostopstate};
    std::optional<Clock::Instant> m_lastReloadTime;
};

} // namespace tolvane
