// SPDX-License-Identifier: MIT
#include "data/seedfile.h"

#include "base/inputfile.h"
#include "base/jsonnode.h"
#include "base/text.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QMimeDatabase>

namespace tolvane::backend {

namespace {

constexpr double maxMinutesAgo = 10.0 * 366 * 24 * 60;
constexpr double maxSecondsUntilReply = 3600;

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
            m_seed.conversations.push_back(readConversation(conversation));
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

    SeededConversation readConversation(const JsonNode &node) const
    {
        node.withFields({"state", "secondsUntilReply", "messages"});
        SeededConversation conversation;
        const std::string state = node.at("state").text();
        if (state != nameOf(State::Open) && state != nameOf(State::Closed))
            node.at("state").fail("needs open or closed");
        conversation.state = stateNamed(state);
        auto &messages = conversation.messages;
        for (const JsonNode &message : node.list("messages")) {
            messages.push_back(readMessage(message));
            if (messages.size() > 1 &&
                messages.back().message.at < messages[messages.size() - 2].message.at)
                message.fail("is older than the message before");
        }
        if (messages.empty())
            node.fail("needs messages");
        if (!node.has("secondsUntilReply"))
            return conversation;
        const JsonNode delay = node.at("secondsUntilReply");
        conversation.secondsUntilReply = delay.number(maxSecondsUntilReply);
        if (messages.back().message.author != Author::Customer)
            delay.fail("the last message is not the customer's");
        return conversation;
    }

    /// The base of relative file paths.
    const QDir m_folder;
    const Instant m_now = now();
    std::map<std::string, Person> m_people;
    Seed m_seed;
};

} // namespace

Seed readSeed(const std::string &path)
{
    SeedReader reader(QFileInfo(QString::fromStdString(path)).dir());
    return parseFile([&reader](std::string_view json) { return reader.read(json); }, path,
                     "--seed");
}

} // namespace tolvane::backend
