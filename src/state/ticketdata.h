// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"

#include <tolvane/loadingstate.h>

#include <QCoroTask>
#include <QtCore/QFuture>
#include <QtCore/QObject>
#include <QtCore/QSet>

#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace tolvane {

/// What a view needs of the messages of a ticket. A worker creates it, since there may be
/// thousands.
struct TOLVANE_PRIVATE_EXPORT DerivedMessages
{
    /// A list of messages, see TicketData::messagesGeneration().
    struct List
    {
        int generation = 0;
        qsizetype count = 0;
    };

    DerivedMessages() = default;
    virtual ~DerivedMessages();

    List before;
    List after;
};

/// One open conversation: the draft, the ticket as last fetched, and the preview of the ticket list
/// until then. A running operation keeps the store alive. Failures are kept in fetchError() and
/// sendError(). Main thread.
class TOLVANE_PRIVATE_EXPORT TicketData final : public QObject,
                                                public std::enable_shared_from_this<TicketData>
{
    Q_OBJECT

public:
    using State = LoadingState<TicketDto>;

    explicit TicketData(std::optional<TicketPreviewDto> preview);
    ~TicketData() override;

    bool isFetchingTicket() const { return m_isFetchingTicket; }
    bool isSendingMessage() const { return m_isSendingMessage; }
    bool hasAttemptedFetch() const { return m_hasAttemptedFetch; }
    const std::optional<TicketPreviewDto> &preview() const { return m_preview; }
    const std::optional<TicketDto> &ticket() const { return m_ticket; }
    /// Changes when the list of messages is replaced by another one. A message that is added at its
    /// end does not change it.
    int messagesGeneration() const { return m_messagesGeneration; }
    /// Derives what a view needs of a list of messages, and of the list before it.
    using Derivation = std::function<std::shared_ptr<DerivedMessages>(
        const QList<MessageDto> &before, const QList<MessageDto> &after)>;
    /// Called on a worker for fetched lists, except for short ones, and before anybody sees them.
    void setDerivation(Derivation derive) { m_derive = std::move(derive); }
    /// The result for the list that ticketChanged() announces. Null for short and unchanged lists.
    const DerivedMessages *derivedMessages() const { return m_derived.get(); }
    const ErrorPtr &fetchError() const { return m_fetchError; }
    const ErrorPtr &sendError() const { return m_sendError; }

    /// True while the conversation has no ticket on the backend.
    bool newTicket() const { return m_newTicket; }
    void setNewTicket(bool newTicket);

    /// The composer's text.
    const QString &message() const { return m_message; }
    void setMessage(const QString &message);

    /// The attachments of the draft, in the order in which they were added, without duplicates:
    /// files with equal name, type and bytes.
    const QList<AttachmentDto> &attachments() const { return m_attachments; }
    void setAttachments(const QList<AttachmentDto> &attachments);

    std::optional<QString> ticketId() const;
    /// True while the draft is empty or a message is being sent. White space counts as content.
    bool isSendDisabled() const;
    /// True if the ticket is assigned to the AI and the last message is the customer's.
    bool isAITyping() const;
    State state() const;

    /// Fetches the given ticket, or else ticketId(), with a loading state. No effect without an id.
    /// If a stop was requested, it fails as a cancelled request, even if the response has arrived.
    QCoro::Task<> fetchTicket(std::optional<QString> ticketId = {}, std::stop_token stop = {});
    /// Fetches without a loading state. Only a failure changes the state.
    QCoro::Task<> silentFetchTicket(std::optional<QString> ticketId = {},
                                    std::stop_token stop = {});
    /// Sends the first message. Keeps the draft if that fails.
    QCoro::Task<> createTicket();
    /// Sends a further message. Keeps the draft if that fails.
    QCoro::Task<> sendMessage();

    /// The backend has stored the message that is in the draft, although sending it has failed:
    /// ends the sending as a success, with the ticket that contains the message.
    void confirmSent(TicketDto ticket);

    /// Calls the two handlers below for the broadcasts of these names, as long as the result
    /// exists.
    [[nodiscard]] NotificationCenter::Observation observe();
    void onMessageNotification(const NotificationCenter::UserInfo &userInfo);
    void onStateUpdateNotification(const NotificationCenter::UserInfo &userInfo);

Q_SIGNALS:
    // An operation that changes several fields sets them all before it emits the first signal.

    /// ticket(), preview() or newTicket(). Also emitted when a fetched ticket is equal to the last.
    void ticketChanged();
    void messageChanged();
    void attachmentsChanged();
    /// isFetchingTicket(), isSendingMessage() or hasAttemptedFetch()
    void busyChanged();
    /// fetchError() or sendError()
    void errorsChanged();

private:
    enum class Fetch { visible, silent };
    struct Compared
    {
        TicketDto ticket;
        std::shared_ptr<DerivedMessages> derived;
    };

    QCoro::Task<> fetch(std::optional<QString> ticketId, Fetch kind, std::stop_token stop);
    QCoro::Task<> refreshLater(QString ticketId, std::stop_token stop);
    void beginFetching(Fetch kind);
    QFuture<Compared> compare(TicketDto fetched) const;
    void setFetched(Compared fetched);
    void setTicket(TicketDto ticket);
    bool hasMessage(const QString &id);
    void appendMessage(const MessageDto &message);
    void beginSending();
    void ticketWasCreated(TicketDto ticket);
    void messageWasSent(const MessageDto &message);
    void sendingSucceeded();
    void sendingFailed(const QString &phrase, const QString &context);
    QVariantMap sentProperties(bool isFirstMessage) const;

    bool m_isFetchingTicket = false;
    bool m_isSendingMessage = false;
    bool m_newTicket = false;
    QString m_message;
    std::optional<TicketPreviewDto> m_preview;
    int m_stateUpdates = 0;
    std::optional<TicketDto> m_ticket;
    int m_messagesGeneration = 0;
    Derivation m_derive;
    std::shared_ptr<DerivedMessages> m_derived;
    /// Of the ticket's messages; absent until many messages have arrived.
    std::optional<QSet<QString>> m_messageIds;
    int m_messageSearches = 0;
    QList<AttachmentDto> m_attachments;
    bool m_hasAttemptedFetch = false;
    ErrorPtr m_fetchError;
    ErrorPtr m_sendError;
    std::stop_source m_refresh{std::nostopstate};
};

} // namespace tolvane
