// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"
#include "records.h"

#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace tolvane::backend {

enum class ReplyKind { Answer, Introduction };

/// An agent's reply that is owed to a customer's message.
struct PendingReply
{
    std::int64_t id = 0;
    ReplyKind kind = ReplyKind::Answer;
    std::int64_t messageSeq = 0;
    Instant due = 0;
    std::string ticketId;
    Author assignee = Author::Ai;
    /// What the customer wrote.
    std::string content;
    int attachmentCount = 0;
    /// Whether the customer has written again since.
    bool isOvertaken = false;
};

/// What becomes of a pending reply, which the ticket's assignee gives.
struct Settlement
{
    std::string content;
    std::optional<Author> newAssignee;
    bool closes = false;
    /// When the new assignee introduces themself.
    std::optional<Instant> introductionDue;
};

/// All that outlasts the process. Safe for threads; each call is one transaction. A customer sees
/// their own tickets only: another's is answered as one that does not exist.
class Store
{
public:
    using Announce = std::function<void(const std::string &deviceToken, Push push)>;
    using NoteChange = std::function<void(const std::string &ticketId)>;

    /// `announce` hears of what is to be pushed once that is committed, in the order of the
    /// commits, and `noteChange` of each ticket that has changed; neither must call back.
    explicit Store(
        Database database, Announce announce = [](const std::string &, const Push &) {},
        NoteChange noteChange = [](const std::string &) {});

    void updateCustomer(const std::string &customer, const CustomerUpdate &update);

    /// Both write the customer's message and the answer that is owed to it.
    Ticket createTicket(const std::string &customer, const NewTicket &ticket, Instant answerDue);
    std::optional<Message> addMessage(const std::string &customer, const std::string &ticketId,
                                      const NewMessage &message, Instant answerDue);

    /// Reading a ticket on the customer's behalf marks its messages as read.
    std::optional<Ticket> readTicket(const std::string &customer, const std::string &ticketId);
    /// The ticket with the newest message comes first.
    std::vector<Preview> previews(const std::string &customer);
    std::optional<StoredFile> file(const std::string &hash, const std::string &name);

    /// Gives the reply that is due first if its time has come. `settle` decides on it in the same
    /// transaction, so that no customer writes in between and no other backend on the file gives it
    /// as well. Returns when to look again; absent when nothing is owed.
    std::optional<Instant>
    giveDueReply(const std::function<Settlement(const PendingReply &)> &settle);

    /// For the agents: the tickets of all customers, the one with the newest message first; and one
    /// of them by itself, or with its conversation. Nothing counts as read by that.
    std::vector<Case> cases();
    std::optional<Case> caseOf(const std::string &ticketId);
    std::optional<Case> conversation(const std::string &ticketId);

    /// A human's answer takes the ticket over: it is assigned to a human, and the scripted agents
    /// stay out of it. Either's stands for all replies that were owed. Absent without the ticket.
    std::optional<Message> addAnswer(const std::string &ticketId, const AgentMessage &answer);
    /// A ticket that is closed is owed no reply. False without the ticket.
    bool changeTicket(const std::string &ticketId, const TicketChange &change);

    /// Keeps a picture that stands in no message. Returns "HASH/NAME".
    std::string addPicture(const Upload &picture);

    std::optional<std::string> setting(const std::string &name);
    void saveSetting(const std::string &name, const std::string &value);

private:
    /// Under which its bytes are kept.
    struct File
    {
        std::string hash;
        std::string name;
    };

    std::optional<PendingReply> nextReply();
    std::vector<Push> give(const PendingReply &reply, const Settlement &settlement);
    std::int64_t insertMessage(Message &message);
    void insertUploads(std::int64_t seq, Message &message, const std::vector<Upload> &uploads);
    Message insertCustomerMessage(const std::string &customer, const std::string &ticketId,
                                  const NewMessage &message, Instant answerDue);
    /// Whether it was in another state before.
    bool changeState(const std::string &ticketId, State state);
    /// Commits, then tells who looks on, and the customer's device, if they have one.
    void commit(Transaction &transaction, const std::string &ticketId, std::vector<Push> pushes);
    void settleReplies(const std::string &ticketId);
    void owe(ReplyKind kind, std::int64_t messageSeq, Instant due);
    void ensureCustomer(const std::string &customer);
    bool hasTicket(const std::string &customer, const std::string &ticketId);
    bool hasTicket(const std::string &ticketId);
    std::optional<Case> findCase(const std::string &ticketId);
    File insertFile(const Upload &upload);
    std::vector<Message> messagesOf(const std::string &customer, const std::string &ticketId);

    std::mutex m_mutex;
    Database m_database;
    const Announce m_announce;
    const NoteChange m_noteChange;
};

} // namespace tolvane::backend
