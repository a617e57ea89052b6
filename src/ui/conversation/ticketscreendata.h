// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"
#include "recovery/backoff.h"
#include "state/navigation/destination.h"
#include "state/ticketdata.h"
#include "state/times/supportavailability.h"
#include "ui/composer/composerdata.h"
#include "ui/messages/messagelistmodel.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>
#include <stop_token>

namespace tolvane {

/// The data of the screen of one conversation: the store, and texts and models for the views. The
/// store observes broadcasts as long as this object exists. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT TicketScreenData : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// An existing ticket or a new one. Set once; later values are ignored.
    Q_PROPERTY(
        tolvane::TolvaneDestination destination READ destination WRITE setDestination REQUIRED)
    /// "idle", "loading", "loadingWithPreview", "loaded", "empty" or "error"
    Q_PROPERTY(QString state READ state NOTIFY stateChanged)
    Q_PROPERTY(QString errorText READ errorText NOTIFY stateChanged)
    Q_PROPERTY(QString title READ title NOTIFY ticketChanged)
    /// Empty for a new conversation.
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY ticketChanged)
    Q_PROPERTY(bool isSupportAvailable READ isSupportAvailable NOTIFY ticketChanged)
    Q_PROPERTY(bool isAITyping READ isAITyping NOTIFY ticketChanged)
    /// Empty until there is a ticket.
    Q_PROPERTY(QString ticketState READ ticketState NOTIFY ticketChanged)
    /// A MessageListModel.
    Q_PROPERTY(QAbstractItemModel *messages READ messages CONSTANT)
    /// A MessageListModel with the last message from the ticket list, until the ticket is loaded.
    Q_PROPERTY(QAbstractItemModel *preview READ preview CONSTANT)
    Q_PROPERTY(tolvane::ComposerData *composer READ composer NOTIFY destinationChanged)

public:
    explicit TicketScreenData(QObject *parent = nullptr);
    /// Cancels a running fetch: a ticket that arrives later does not count as viewed.
    ~TicketScreenData() override;

    const TolvaneDestination &destination() const { return m_destination; }
    void setDestination(const TolvaneDestination &destination);
    QString state() const { return m_state; }
    QString errorText() const { return m_errorText; }
    QString title() const { return m_title; }
    QString subtitle() const { return m_availability.text; }
    bool isSupportAvailable() const { return m_availability.isAvailable; }
    bool isAITyping() const { return m_ticketData && m_ticketData->isAITyping(); }
    QString ticketState() const;
    QAbstractItemModel *messages() { return &m_messages; }
    QAbstractItemModel *preview() { return &m_preview; }
    ComposerData *composer() { return m_composer ? &*m_composer : nullptr; }

    /// Fetches the ticket, with a loading state until a fetch has succeeded. To be called whenever
    /// the screen appears, and to try again. After a failure, the ticket is fetched again
    /// automatically.
    Q_INVOKABLE void appear();

Q_SIGNALS:
    void stateChanged();
    void ticketChanged();
    void destinationChanged();

private:
    void updateTicket();
    void updateErrors();
    void updateState();

    TolvaneDestination m_destination;
    std::shared_ptr<TicketData> m_ticketData;
    std::optional<ComposerData> m_composer;
    MessageListModel m_messages;
    MessageListModel m_preview;
    QString m_state;
    QString m_errorText;
    QString m_title;
    SupportAvailability m_availability;
    NotificationCenter::Observation m_observation;
    std::stop_source m_stopSource;
    BackOff m_backOff{[this] { appear(); }};
};

} // namespace tolvane
