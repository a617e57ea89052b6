// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"
#include "recovery/backoff.h"
#include "state/messagedata.h"
#include "state/navigation/conversationrequest.h"
#include "state/navigation/navigationdata.h"
#include "state/ticketsdata.h"
#include "ui/tickets/ticketlistmodel.h"

#include <QtCore/QObject>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <utility>
#include <vector>

namespace tolvane {

/// The stores of one presentation of the messenger, created and destroyed with it. Tickets are
/// loaded once the settings are. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ScreenData : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("each presentation has its own")
    Q_PROPERTY(bool settingsDidLoad READ settingsDidLoad NOTIFY settingsChanged)
    /// The reason for which the settings could not be loaded, in the customer's language. Empty if
    /// they are loaded, or if no attempt has failed. After a failure, further attempts follow
    /// automatically.
    Q_PROPERTY(QString settingsErrorText READ settingsErrorText NOTIFY settingsChanged)
    Q_PROPERTY(bool isLoadingSettings READ isLoadingSettings NOTIFY settingsChanged)
    /// True if an item of the host shows the messenger. Then the host decides when it is closed.
    Q_PROPERTY(bool isEmbedded READ isEmbedded CONSTANT)
    /// Whether the host wants a panel, which needs a window that is large enough.
    Q_PROPERTY(bool prefersPanel READ prefersPanel NOTIFY prefersPanelChanged)
    /// True makes the messenger slide in. False makes it slide out, after which it calls didHide().
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged)
    /// "idle", "loading", "loadingWithPreview", "loaded", "empty" or "error"
    Q_PROPERTY(QString state READ state NOTIFY ticketsChanged)
    /// True if the last load has failed, and the rows are from an earlier one. The state is
    /// "loaded" then.
    Q_PROPERTY(bool isStale READ isStale NOTIFY ticketsChanged)
    Q_PROPERTY(bool isLoading READ isLoading NOTIFY ticketsChanged)
    /// Whether there is a draft of a new conversation.
    Q_PROPERTY(bool hasNewTicketDraft READ hasNewTicketDraft NOTIFY draftsChanged)
    Q_PROPERTY(QString errorText READ errorText NOTIFY ticketsChanged)
    Q_PROPERTY(QAbstractItemModel *tickets READ tickets CONSTANT)
    /// A text of the host for the draft of the open new conversation; empty once taken.
    Q_PROPERTY(QString newTicketText READ newTicketText NOTIFY newTicketTextChanged)
    /// Whether the last load has succeeded.
    Q_PROPERTY(bool isListKnown READ isListKnown NOTIFY ticketsChanged)
    Q_PROPERTY(QStringList ticketIds READ ticketIds NOTIFY ticketsChanged)
    Q_PROPERTY(tolvane::NavigationData *navigation READ navigation CONSTANT)
    Q_PROPERTY(tolvane::MessageData *attachmentSelection READ attachmentSelection CONSTANT)

public:
    explicit ScreenData(QObject *parent = nullptr);

    bool isEmbedded() const { return m_isEmbedded; }
    /// Call it before the views are created.
    void setEmbedded(bool isEmbedded) { m_isEmbedded = isEmbedded; }
    bool prefersPanel() const { return m_prefersPanel; }
    void setPanelPreferred(bool prefersPanel);
    bool isShown() const { return m_isShown; }
    void setShown(bool isShown);
    bool settingsDidLoad() const;
    QString settingsErrorText() const;
    bool isLoadingSettings() const;
    bool isStale() const;
    bool isListKnown() const;
    QStringList ticketIds() const;
    QString state() const;
    bool isLoading() const { return m_ticketsData->state().isLoading(); }
    QString errorText() const;
    bool hasNewTicketDraft() const;
    QAbstractItemModel *tickets() { return &m_tickets; }
    QString newTicketText() const { return m_newTicketText; }
    NavigationData *navigation() { return &m_navigation; }
    MessageData *attachmentSelection() { return &m_attachmentSelection; }

    /// Loads the tickets with a loading state, as after pulling the list down.
    Q_INVOKABLE void load();
    /// Refreshes the tickets without a loading state, as after returning to the list.
    Q_INVOKABLE void reload();
    Q_INVOKABLE QString takeNewTicketText() { return std::exchange(m_newTicketText, {}); }
    /// Loads the settings if they are missing.
    Q_INVOKABLE void loadSettings();
    /// Updates the ages of the messages.
    Q_INVOKABLE void updateAges() { m_tickets.updateTexts(); }
    /// Requests to close the messenger, as the close button does.
    Q_INVOKABLE void close() { Q_EMIT closeRequested(); }
    Q_INVOKABLE void didHide() { Q_EMIT hidden(); }

Q_SIGNALS:
    void settingsChanged();
    void ticketsChanged();
    void draftsChanged();
    void prefersPanelChanged();
    void isShownChanged();
    void newTicketTextChanged();
    void closeRequested();
    void hidden();

private:
    void startOnceSettingsLoaded();
    void syncFromSettings();
    void observe();
    void syncFromStore();
    void showRequestedConversation();

    const std::shared_ptr<TicketsData> m_ticketsData = std::make_shared<TicketsData>();
    TicketListModel m_tickets;
    BackOff m_settingsBackOff{[this] { loadSettings(); }};
    NavigationData m_navigation;
    QString m_newTicketText;
    MessageData m_attachmentSelection;
    std::vector<NotificationCenter::Observation> m_observations;
    bool m_hasStarted = false;
    bool m_isEmbedded = false;
    bool m_prefersPanel = false;
    bool m_isShown = false;
};

} // namespace tolvane
