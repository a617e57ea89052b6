// SPDX-License-Identifier: MIT
// Pushes to a customer's device, and the event stream that brings them to a host.
#include "runningbackend.h"

#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;

namespace {

/// A client of an event stream. Each event and each heartbeat arrives in one piece.
class EventStreamClient
{
public:
    EventStreamClient(const RunningBackend &backend, const QByteArray &path,
                      const QByteArray &last = {})
    {
        m_socket.connectToHost(QStringLiteral("127.0.0.1"), quint16(backend.port()));
        m_socket.write("GET " + path +
                       " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(backend.port()) +
                       "\r\nLast-Event-ID: " + last + "\r\n\r\n");
    }

    const QByteArray &received() { return m_received += m_socket.readAll(); }

    /// The values of the lines that begin with the name.
    QByteArrayList lines(const QByteArray &name)
    {
        QByteArrayList found;
        for (const QByteArray &line : received().split('\n')) {
            if (line.startsWith(name))
                found += line.mid(name.size()).trimmed();
        }
        return found;
    }

    /// The contents of the messages, joined.
    QByteArray digest()
    {
        QByteArray text;
        for (const QByteArray &data : lines("data: ")) {
            const QJsonDocument payload = QJsonDocument::fromJson(data);
            text += payload[QLatin1String("message")][QLatin1String("content")].toString().toUtf8();
        }
        return text;
    }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
};

Push messageOf(const std::string &content)
{
    Message message;
    message.content = content;
    return message;
}

} // namespace

class PushesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingIsMissedOrPushedTwice()
    {
        RunningBackend backend;
        const auto push = [&](const char *content) {
            backend.pushService.send("feed", messageOf(content));
        };
        push("a");
        push("b");
        QByteArrayList ids;
        {
            EventStreamClient first(backend, "/api/push/feed");
            TRY_COMPARE(first.digest(), "ab");
            ids = first.lines("id: ");
        }
        push("c");
        EventStreamClient second(backend, "/api/push/feed"); // Connects again, without an id.
        TRY_COMPARE(second.digest(), "c");
        std::vector<std::pair<QByteArray, QByteArray>> expected = {
            {ids[0], "bcd"}, {"junk", "d"}, {"18446744073709551615", "d"}, {"0", "abcd"}};
        std::vector<std::unique_ptr<EventStreamClient>> hosts;
        for (const auto &[last, digest] : expected) {
            hosts.push_back(std::make_unique<EventStreamClient>(backend, "/api/push/feed", last));
            TRY_COMPARE(hosts.back()->digest() + 'd', digest);
            QTRY_VERIFY(hosts.back()->received().contains("\r\n\r\n"));
        }
        push("d");
        for (std::size_t i = 0; i < hosts.size(); ++i)
            TRY_COMPARE(hosts[i]->digest(), expected[i].second);
        // A backend that starts later has greater numbers.
        PushService later;
        later.send("feed", messageOf("e"));
        QVERIFY(PushStream(later, "feed", ids[1].toULongLong()).next());
    }

    void keptPushesAreBounded()
    {
        PushService pushes;
        PushStream kept(pushes, "kept", {});
        pushes.send("oldest", messageOf("x"));
        for (int i = 0; i < 300; ++i)
            pushes.send(std::to_string(i), messageOf("x"));
        QVERIFY(!PushStream(pushes, "oldest", {}).next());
        QVERIFY(PushStream(pushes, "299", {}).next());
        for (int i = 0; i < 150; ++i)
            pushes.send("kept", messageOf(std::to_string(i)));
        pushes.send("kept", messageOf(std::string(1 << 20, 'x')));
        std::string contents;
        while (const auto push = kept.next()) {
            contents += std::get<Message>(push->push).content + ' ';
            kept.confirm(push->number);
        }
        QVERIFY(contents.starts_with("50 51 ") && contents.ends_with(" 148 149 "));
    }
};

QTEST_GUILESS_MAIN(PushesTest)
#include "tst_pushes.moc"
