// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "platform/async/notificationcenter.h"

#include <tolvane/loadingstate.h>

#include <QCoroTask>
#include <QtCore/QObject>

#include <memory>
#include <optional>
#include <stop_token>

namespace tolvane {

/// One open conversation: what is being written, the ticket as last fetched, and meanwhile what the
/// ticket list knew of it. Main thread; a running operation keeps the store alive. Failures end up
/// in fetchError() and sendError().
class TOLVANE_PRIVATE_EXPORT TicketData final : public QObject,
                                                public std::enable_shared_from_this<TicketData>
{
    Q_OBJECT
    Q_PROPERTY(bool isFetchingTicket READ isFetchingTicket NOTIFY changed)
    Q_PROPERTY(bool isSendingMessage READ isSendingMessage NOTIFY changed)
    Q_PROPERTY(bool newTicket READ newTicket WRITE setNewTicket NOTIFY changed)
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY changed)
    Q_PROPERTY(bool isSendDisabled READ isSendDisabled NOTIFY changed)
    Q_PROPERTY(bool isAITyping READ isAITyping NOTIFY changed)

public:
    using State = LoadingState<TicketDto>;

    explicit TicketData(std::optional<TicketPreviewDto> preview);

    bool isFetchingTicket() const { return m_isFetchingTicket; }
    bool isSendingMessage() const { return m_isSendingMessage; }
    bool hasAttemptedFetch() const { return m_hasAttemptedFetch; }
    const std::optional<TicketPreviewDto> &preview() const { return m_preview; }
    const std::optional<TicketDto> &ticket() const { return m_ticket; }
    const ErrorPtr &fetchError() const { return m_fetchError; }
    const ErrorPtr &sendError() const { return m_sendError; }

    /// True while the conversation has no ticket on the backend.
    bool newTicket() const { return m_newTicket; }
    void setNewTicket(bool newTicket);

    /// The composer's text.
    const QString &message() const { return m_message; }
    void setMessage(const QString &message);

    /// The files being composed, in the order in which they were added. A set: one that equals
    /// another in name, type and bytes counts once.
    const QList<AttachmentDto> &attachments() const { return m_attachments; }
    void setAttachments(const QList<AttachmentDto> &attachments);

    std::optional<QString> ticketId() const;
    /// Nothing to send, or a send is running. White space counts as content.
    bool isSendDisabled() const;
    /// The customer has spoken last and the AI has the ticket.
    bool isAITyping() const;
    State state() const;

    /// The fetch that shows, of the given ticket or else of ticketId(). Without either, nothing. A
    /// stopped one fails as a request that was cancelled, whatever the backend answers.
    QCoro::Task<> fetchTicket(std::optional<QString> ticketId = {}, std::stop_token stop = {});
    /// The fetch that doesn't show; a failure of it does.
    QCoro::Task<> silentFetchTicket(std::optional<QString> ticketId = {},
                                    std::stop_token stop = {});
    /// Sends the first message. What was composed stays if that fails.
    QCoro::Task<> createTicket();
    /// Sends a further message. What was composed stays if that fails.
    QCoro::Task<> sendMessage();

    /// The reactions to the broadcasts of the same names, for whoever shows this conversation.
    void onMessageNotification(const NotificationCenter::UserInfo &userInfo);
    void onStateUpdateNotification(const NotificationCenter::UserInfo &userInfo);

Q_SIGNALS:
    void changed();

private:
    enum class Fetch { visible, silent };

    QCoro::Task<> fetch(std::optional<QString> ticketId, Fetch kind, std::stop_token stop);
    QCoro::Task<> refreshLater(QString ticketId);
    void setTicket(TicketDto ticket);
    bool hasMessage(const QString &id) const;
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
    std::optional<TicketDto> m_ticket;
    QList<AttachmentDto> m_attachments;
    bool m_hasAttemptedFetch = false;
    ErrorPtr m_fetchError;
    ErrorPtr m_sendError;
};

} // namespace tolvane
