// SPDX-License-Identifier: MIT
#include "data/seedfile.h"

#include "base/text.h"
#include "data/messagerows.h"
#include "settings/settingsjson.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QMimeDatabase>
#include <QtCore/QRegularExpression>

#include <map>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

constexpr double maxMinutesAgo = 10.0 * 366 * 24 * 60;
constexpr double maxSecondsUntilReply = 3600;

using People = std::map<QString, Person>;

/// A JSON value with its position in the file, for error messages.
class JsonNode
{
public:
    JsonNode(const QDir &folder, QJsonValue value, QString position)
        : m_folder(&folder)
        , m_value(std::move(value))
        , m_position(std::move(position))
    {
    }

    [[noreturn]] void fail(const QString &reason) const
    {
        const QString text =
            m_position.isEmpty() ? reason : u"at "_s + m_position + u": "_s + reason;
        throw SettingsError(text.toStdString());
    }

    /// Requires an object with no other fields than these.
    const JsonNode &withFields(const QStringList &fields) const
    {
        if (!m_value.isObject())
            fail(u"needs an object"_s);
        for (const QString &key : keys()) {
            if (!fields.contains(key))
                fail(u"unknown field '%1'; the fields are %2"_s.arg(key, fields.join(u", "_s)));
        }
        return *this;
    }

    /// The keys of an object; empty when the value is missing.
    QStringList keys() const
    {
        if (!m_value.isObject() && !m_value.isUndefined())
            fail(u"needs an object"_s);
        return m_value.toObject().keys();
    }
    bool has(const QString &key) const { return m_value.toObject().contains(key); }

    JsonNode at(const QString &key) const
    {
        return {*m_folder, m_value.toObject().value(key),
                m_position.isEmpty() ? key : m_position + u'.' + key};
    }

    /// The elements of a list; empty when the field is missing.
    std::vector<JsonNode> list(const QString &key) const
    {
        const JsonNode node = at(key);
        if (!node.m_value.isArray() && has(key))
            node.fail(u"needs a list"_s);
        std::vector<JsonNode> nodes;
        for (const QJsonValue value : node.m_value.toArray())
            nodes.emplace_back(*m_folder, value,
                               u"%1[%2]"_s.arg(node.m_position).arg(nodes.size()));
        return nodes;
    }

    QString text() const
    {
        if (!m_value.isString() || m_value.toString().isEmpty())
            fail(u"needs a string"_s);
        return m_value.toString();
    }

    double number(double maximum) const
    {
        const double number = m_value.toDouble(-1);
        if (number < 0 || number > maximum)
            fail(u"needs a number from 0 to %1"_s.arg(maximum));
        return number;
    }

    bool flag() const
    {
        if (!m_value.isBool())
            fail(u"needs true or false"_s);
        return m_value.toBool();
    }

    /// Reads the picture whose path is the value.
    Upload picture() const
    {
        QFile file(m_folder->filePath(text()));
        if (!file.open(QIODevice::ReadOnly))
            fail(u"'%1' cannot be read (%2)"_s.arg(text(), file.errorString()));
        const QByteArray bytes = file.readAll();
        const QString type = QMimeDatabase().mimeTypeForData(bytes).name();
        if (!type.startsWith("image/"_L1))
            fail(u"'%1' is not a picture"_s.arg(text()));
        return {safeFileName(QFileInfo(file).fileName().toStdString()), type.toStdString(),
                bytes.toStdString()};
    }

private:
    /// The base of relative file paths.
    const QDir *m_folder;
    QJsonValue m_value;
    QString m_position;
};

People readPeople(const JsonNode &node, Seed &seed)
{
    People people;
    for (const QString &key : node.keys()) {
        const JsonNode fields = node.at(key).withFields({u"name"_s, u"picture"_s});
        Person &person = people[key];
        person.name = fields.at(u"name"_s).text().toStdString();
        if (!fields.has(u"picture"_s))
            continue;
        const Upload picture = fields.at(u"picture"_s).picture();
        person.picture = filePath(sha256Hex(picture.bytes), picture.fileName);
        seed.pictures.push_back(picture);
    }
    return people;
}

void readSender(const JsonNode &node, const People &people, SeededMessage &message)
{
    const QString from = node.text();
    const auto person = people.find(from);
    if (person != people.end()) {
        message.author = Author::Human;
        message.person = person->second;
    } else if (from == "ai"_L1) {
        message.author = Author::Ai;
    } else if (from != "customer"_L1) {
        node.fail(u"'%1' is neither customer, ai nor one of the people"_s.arg(from));
    }
}

SeededMessage readMessage(const JsonNode &node, const People &people)
{
    node.withFields({u"from"_s, u"minutesAgo"_s, u"text"_s, u"unread"_s, u"attachments"_s});
    SeededMessage message;
    readSender(node.at(u"from"_s), people, message);
    message.minutesAgo = node.at(u"minutesAgo"_s).number(maxMinutesAgo);
    message.isUnread = node.has(u"unread"_s) && node.at(u"unread"_s).flag();
    if (message.isUnread && message.author == Author::Customer)
        node.fail(u"the customer's own messages cannot be unread"_s);
    for (const JsonNode &attachment : node.list(u"attachments"_s))
        message.attachments.push_back(attachment.picture());
    if (node.has(u"text"_s) || message.attachments.empty())
        message.text = node.at(u"text"_s).text().toStdString();
    return message;
}

SeededConversation readConversation(const JsonNode &node, const People &people)
{
    node.withFields({u"state"_s, u"secondsUntilReply"_s, u"messages"_s});
    SeededConversation conversation;
    const JsonNode state = node.at(u"state"_s);
    const QString name = state.text();
    if (name != "open"_L1 && name != "closed"_L1)
        state.fail(u"needs open or closed"_s);
    conversation.state = stateNamed(name.toStdString());
    for (const JsonNode &message : node.list(u"messages"_s)) {
        conversation.messages.push_back(readMessage(message, people));
        const auto &messages = conversation.messages;
        if (messages.size() > 1 &&
            messages.back().minutesAgo > messages[messages.size() - 2].minutesAgo)
            message.fail(u"is older than the message before"_s);
    }
    if (conversation.messages.empty())
        node.fail(u"needs messages"_s);
    if (node.has(u"secondsUntilReply"_s)) {
        const JsonNode reply = node.at(u"secondsUntilReply"_s);
        conversation.secondsUntilReply = reply.number(maxSecondsUntilReply);
        if (conversation.messages.back().author != Author::Customer)
            reply.fail(u"the last message is not the customer's"_s);
    }
    return conversation;
}

QString readCustomer(const JsonNode &node)
{
    static const QRegularExpression visible(u"^[!-~]{1,128}$"_s);
    if (!visible.match(node.text()).hasMatch())
        node.fail(u"needs 1 to 128 visible ASCII characters"_s);
    return node.text();
}

Seed parseSeed(std::string_view json, const QDir &folder)
{
    const QJsonDocument document = parseSettingsJson(json);
    const QJsonValue value =
        document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
    const JsonNode root(folder, value, {});
    root.withFields(
        {u"customer"_s, u"deviceToken"_s, u"pictures"_s, u"people"_s, u"conversations"_s});
    Seed seed;
    seed.customer = readCustomer(root.at(u"customer"_s)).toStdString();
    if (root.has(u"deviceToken"_s))
        seed.deviceToken = root.at(u"deviceToken"_s).text().toStdString();
    for (const JsonNode &picture : root.list(u"pictures"_s))
        seed.pictures.push_back(picture.picture());
    const People people = readPeople(root.at(u"people"_s), seed);
    for (const JsonNode &conversation : root.list(u"conversations"_s))
        seed.conversations.push_back(readConversation(conversation, people));
    return seed;
}

} // namespace

Seed readSeed(const std::string &path)
{
    const QDir folder = QFileInfo(QString::fromStdString(path)).dir();
    return parseFile([&folder](std::string_view json) { return parseSeed(json, folder); }, path,
                     "--seed");
}

} // namespace tolvane::backend
