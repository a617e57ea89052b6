// SPDX-License-Identifier: MIT
#include "data/seed.h"

#include "base/inputfile.h"
#include "base/jsonnode.h"
#include "base/text.h"
#include "data/rows.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>

#include <algorithm>

namespace tolvane::backend {

namespace {

constexpr double maxMinutesAgo = 10.0 * 366 * 24 * 60;
constexpr double maxSecondsUntilReply = 3600;

struct SeededMessage
{
    Message message;
    std::vector<Upload> attachments;
    /// The time of the reply to the message, if one is pending.
    std::optional<Instant> replyDue = {};
};

struct Seed
{
    std::string customer;
    /// Empty when the customer has no device.
    std::string deviceToken;
    /// The pictures of the people, and pictures that are not attached to a message.
    std::vector<Upload> pictures;
    /// Without their messages.
    std::vector<Ticket> tickets;
    std::vector<SeededMessage> messages;
};

class SeedReader
{
public:
    explicit SeedReader(const QDir &folder)
        : m_folder(folder)
    {
    }

    Seed read(std::string_view json)
    {
        const JsonNode root = JsonNode::parse(json);
        root.withFields({"customer", "deviceToken", "pictures", "people", "conversations"});
        const JsonNode customer = root.at("customer");
        m_seed.customer = customer.text();
        if (!isCustomerId(m_seed.customer))
            customer.fail("needs 1 to 128 visible ASCII characters");
        if (root.has("deviceToken"))
            m_seed.deviceToken = root.at("deviceToken").text();
        for (const JsonNode &picture : root.list("pictures"))
            m_seed.pictures.push_back(readPicture(picture));
        if (root.has("people"))
            readPeople(root.at("people"));
        for (const JsonNode &conversation : root.list("conversations"))
            readConversation(conversation);
        return std::move(m_seed);
    }

private:
    Upload readPicture(const JsonNode &node) const
    {
        const QString path = m_folder.filePath(QString::fromStdString(node.text()));
        std::string bytes;
        try {
            bytes = readFile(path);
        } catch (const InputError &error) {
            node.fail('\'' + node.text() + "' " + error.what());
        }
        const QMimeType type = QMimeDatabase().mimeTypeForData(QByteArray::fromStdString(bytes));
        if (!type.name().startsWith(QLatin1String("image/")))
            node.fail('\'' + node.text() + "' is not a picture");
        return {safeFileName(node.text()), type.name().toStdString(), std::move(bytes)};
    }

    void readPeople(const JsonNode &people)
    {
        for (const auto &entry : people.object().value().items()) {
            const JsonNode fields = people.at(entry.key()).withFields({"name", "picture"});
            Person &person = m_people[entry.key()];
            person.name = fields.at("name").text();
            if (!fields.has("picture"))
                continue;
            m_seed.pictures.push_back(readPicture(fields.at("picture")));
            const Upload &picture = m_seed.pictures.back();
            person.picture = filePath(sha256Hex(picture.bytes), picture.fileName);
        }
    }

    SeededMessage readMessage(const JsonNode &node) const
    {
        node.withFields({"from", "minutesAgo", "text", "unread", "attachments"});
        SeededMessage seeded;
        Message &message = seeded.message;
        message.id = newId();
        const std::string from = node.at("from").text();
        if (const auto person = m_people.find(from); person != m_people.end()) {
            message.author = Author::Human;
            message.person = person->second;
        } else if (from == "ai") {
            message.author = Author::Ai;
        } else if (from != "customer") {
            node.at("from").fail('\'' + from + "' is neither customer, ai nor one of the people");
        }
        const double minutes = node.at("minutesAgo").number(maxMinutesAgo);
        message.at = m_now - static_cast<Instant>(minutes * 60'000);
        message.isRead = !(node.has("unread") && node.at("unread").flag());
        if (!message.isRead && message.author == Author::Customer)
            node.fail("the customer's own messages cannot be unread");
        for (const JsonNode &attachment : node.list("attachments"))
            seeded.attachments.push_back(readPicture(attachment));
        if (node.has("text") || seeded.attachments.empty())
            message.content = node.at("text").text();
        return seeded;
    }

    void readConversation(const JsonNode &node)
    {
        node.withFields({"state", "secondsUntilReply", "messages"});
        const std::string state = node.at("state").text();
        if (state != nameOf(State::Open) && state != nameOf(State::Closed))
            node.at("state").fail("needs open or closed");
        Ticket ticket{.id = newId(), .state = stateNamed(state), .messages = {}};
        std::optional<Message> last;
        for (const JsonNode &each : node.list("messages")) {
            SeededMessage seeded = readMessage(each);
            if (last && seeded.message.at < last->at)
                each.fail("is older than the message before");
            seeded.message.ticketId = ticket.id;
            last = seeded.message;
            if (last->author != Author::Customer)
                ticket.assignee = last->author;
            m_seed.messages.push_back(std::move(seeded));
        }
        if (!last)
            node.fail("needs messages");
        if (node.has("secondsUntilReply")) {
            const JsonNode delay = node.at("secondsUntilReply");
            if (last->author != Author::Customer)
                delay.fail("the last message is not the customer's");
            const double seconds = delay.number(maxSecondsUntilReply);
            m_seed.messages.back().replyDue = m_now + static_cast<Instant>(seconds * 1000);
        }
        m_seed.tickets.push_back(std::move(ticket));
    }

    /// The base of relative file paths.
    const QDir m_folder;
    const Instant m_now = now();
    std::map<std::string, Person> m_people;
    Seed m_seed;
};

void insertTickets(Database &database, Seed &seed)
{
    for (const Ticket &ticket : seed.tickets)
        run(database,
            "INSERT INTO tickets (id, customer_id, state, assignee, channel, device)"
            " VALUES (?, ?, ?, ?, 'app', '{}')",
            ticket.id, seed.customer, nameOf(ticket.state), nameOf(ticket.assignee));
    // The order of the rows determines the order of the tickets.
    std::ranges::stable_sort(seed.messages, {},
                             [](const SeededMessage &seeded) { return seeded.message.at; });
    for (SeededMessage &seeded : seed.messages) {
        const std::int64_t seq = insertMessage(database, seeded.message, seeded.attachments);
        if (seeded.replyDue)
            enqueueReply(database, ReplyKind::Message, seq, *seeded.replyDue);
    }
}

} // namespace

void loadSeed(const std::string &path, Database &database)
{
    SeedReader reader(QFileInfo(QString::fromStdString(path)).dir());
    Seed seed =
        parseFile([&reader](std::string_view json) { return reader.read(json); }, path, "--seed");
    Transaction transaction(database);
    for (const Upload &picture : seed.pictures)
        insertPicture(database, picture);
    run(database,
        "INSERT INTO customers (id, device_token) VALUES (?1, nullif(?2, ''))"
        " ON CONFLICT (id) DO NOTHING",
        seed.customer, seed.deviceToken);
    const bool isNew =
        !query(database, "SELECT 1 FROM tickets WHERE customer_id = ?", seed.customer)
             .executeStep();
    if (isNew)
        insertTickets(database, seed);
    transaction.commit();
}

} // namespace tolvane::backend
