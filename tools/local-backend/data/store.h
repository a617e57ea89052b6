// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"
#include "data/rows.h"

#include <functional>
#include <string>
#include <vector>

namespace tolvane::backend {

/// A scripted agent's reply to a customer's message, which is sent when it is due.
struct PendingReply
{
    std::int64_t id = 0;
    ReplyKind kind = ReplyKind::Message;
    std::int64_t messageSeq = 0;
    Instant due = 0;
    std::string ticketId;
    Author assignee = Author::Ai;
    /// The customer's message.
    std::string content;
    int attachmentCount = 0;
    /// Whether the customer has already sent a newer message.
    bool hasNewerMessage = false;
};

/// The reply's text, from the ticket's assignee, and its effects on the ticket.
struct ReplyOutcome
{
    std::string content;
    std::optional<Author> newAssignee;
    bool closes = false;
    /// The time at which the new assignee introduces themself.
    std::optional<Instant> introductionDue;
};

/// The persistent data. Each call is one transaction. Customers have access to their
/// own tickets only; for other tickets, functions return nullopt.
class Store
{
public:
    using SendPush = std::function<void(const std::string &deviceToken, Push push)>;
    using NotifyChange = std::function<void(const std::string &ticketId)>;

    /// `sendPush` receives the pushes and `notifyChange` the ids of changed tickets, both after the
    /// commit and in the order of the commits. They must not call the store.
    Store(Database database, SendPush sendPush, NotifyChange notifyChange);

    void updateCustomer(const std::string &customer, const CustomerUpdate &update);

    /// Both store the customer's message together with the pending reply to it.
    Ticket createTicket(const std::string &customer, const NewTicket &ticket, Instant replyDue);
    std::optional<Message> addMessage(const std::string &customer, const std::string &ticketId,
                                      const NewMessage &message, Instant replyDue);

    /// Reads a ticket for its customer, and marks its messages as read.
    std::optional<Ticket> readTicket(const std::string &customer, const std::string &ticketId);
    /// Ordered by the newest message, newest first.
    std::vector<Preview> previews(const std::string &customer);
    std::optional<StoredFile> file(const std::string &hash, const std::string &name);

    /// Sends the pending reply with the earliest due time, if it is due. `decide` runs in the same
    /// transaction, so that no customer can write in between and no other backend on the same file
    /// sends the reply, too. Returns the reply's due time; nullopt when no reply is pending.
    std::optional<Instant>
    sendDueReply(const std::function<ReplyOutcome(const PendingReply &)> &decide);

    /// For the agent page: the tickets of all customers, ordered by the newest message, newest
    /// first; one ticket with its newest message; one ticket with all messages. These functions do
    /// not mark messages as read.
    std::vector<AgentTicket> agentTickets();
    std::optional<AgentTicket> agentTicket(const std::string &ticketId);
    std::optional<AgentTicket> agentConversation(const std::string &ticketId);

    /// Discards the pending replies. A human's message also assigns the ticket to a human and turns
    /// automatic replies off. Returns nullopt when there is no such ticket.
    std::optional<Message> addAgentMessage(const std::string &ticketId, const AgentMessage &sent);
    /// Closing a ticket discards its pending replies. Returns false when there is no such ticket.
    bool changeTicket(const std::string &ticketId, const TicketChange &change);

    /// Stores a picture that is not attached to a message. Returns "HASH/NAME".
    std::string addPicture(const Upload &picture);

    std::optional<std::string> setting(const std::string &name);
    void saveSetting(const std::string &name, const std::string &value);

private:
    std::optional<PendingReply> nextReply();
    std::vector<Push> applyOutcome(const PendingReply &reply, const ReplyOutcome &outcome);
    Message insertCustomerMessage(const std::string &customer, const std::string &ticketId,
                                  const NewMessage &message, Instant replyDue);
    /// Returns whether the ticket was in another state before.
    bool changeState(const std::string &ticketId, State state);
    /// Commits, then reports the change and sends the pushes to the customer's device, if any.
    void commit(Transaction &transaction, const std::string &ticketId, std::vector<Push> pushes);
    void discardReplies(const std::string &ticketId);
    void ensureCustomer(const std::string &customer);
    bool hasTicket(const std::string &customer, const std::string &ticketId);
    bool hasTicket(const std::string &ticketId);
    std::vector<Message> messagesOf(const std::string &customer, const std::string &ticketId);

    Database m_database;
    const SendPush m_sendPush;
    const NotifyChange m_notifyChange;
};

} // namespace tolvane::backend
