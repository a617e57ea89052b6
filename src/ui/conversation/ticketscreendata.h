// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"
#include "state/destination.h"
#include "state/supportavailability.h"
#include "state/ticketdata.h"
#include "ui/composer/composerdata.h"
#include "ui/messages/messagelistmodel.h"

#include <QCoroTask>
#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace tolvane {

/// What one conversation's screen shows: its store, which is new with the screen, and what the
/// views make of it. Takes in pushes and polls for as long as it lives. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT TicketScreenData : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// A ticket or a new one; set once, before anything else is asked for.
    Q_PROPERTY(
        tolvane::TolvaneDestination destination READ destination WRITE setDestination REQUIRED)
    /// "idle", "loading", "loadingWithPreview", "loaded", "empty" or "error"
    Q_PROPERTY(QString state READ state NOTIFY changed)
    Q_PROPERTY(QString errorText READ errorText NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    /// Empty for a conversation that is about to begin.
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed)
    Q_PROPERTY(bool isSupportAvailable READ isSupportAvailable NOTIFY changed)
    Q_PROPERTY(bool isAITyping READ isAITyping NOTIFY changed)
    /// Empty until there is a ticket.
    Q_PROPERTY(QString ticketState READ ticketState NOTIFY changed)
    /// A MessageListModel.
    Q_PROPERTY(QAbstractItemModel *messages READ messages CONSTANT)
    /// The same of what is known before the conversation is there: a message at most.
    Q_PROPERTY(QAbstractItemModel *preview READ preview CONSTANT)
    Q_PROPERTY(tolvane::ComposerData *composer READ composer NOTIFY destinationChanged)

public:
    explicit TicketScreenData(QObject *parent = nullptr);
    /// Who leaves before the conversation has arrived has not seen it.
    ~TicketScreenData() override;

    const TolvaneDestination &destination() const { return m_destination; }
    void setDestination(const TolvaneDestination &destination);
    QString state() const;
    QString errorText() const;
    QString title() const;
    QString subtitle() const { return m_availability.text; }
    bool isSupportAvailable() const { return m_availability.isAvailable; }
    bool isAITyping() const { return m_ticketData && m_ticketData->isAITyping(); }
    QString ticketState() const;
    QAbstractItemModel *messages() { return &m_messages; }
    QAbstractItemModel *preview() { return &m_preview; }
    ComposerData *composer() { return m_composer ? &*m_composer : nullptr; }

    /// Each time the screen appears: the first fetch shows, later ones do not.
    Q_INVOKABLE void appear();

Q_SIGNALS:
    void changed();
    void destinationChanged();

private:
    QCoro::Task<> load();
    void observe();
    void takeOver();

    TolvaneDestination m_destination;
    std::shared_ptr<TicketData> m_ticketData;
    std::optional<ComposerData> m_composer;
    MessageListModel m_messages;
    MessageListModel m_preview;
    SupportAvailability m_availability;
    std::vector<NotificationCenter::Observation> m_observations;
    std::stop_source m_appearances;
    bool m_hasLoaded = false;
};

} // namespace tolvane
