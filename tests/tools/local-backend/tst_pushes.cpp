// SPDX-License-Identifier: MIT
// Pushes to a customer's device, and the event stream that brings them to a host.
#include "eventstreamclient.h"
#include "runningbackend.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;

namespace {

void registerDevice(Customer &customer, const std::string &token)
{
    customer.send("POST", "/api/customer/device/update", "{\"deviceToken\":\"" + token + "\"}");
}

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
    void fromAiToHumanToClosedAndBack()
    {
        const RunningBackend backend(inMemory, 5ms);
        Customer ada(backend.port());
        Customer bob(backend.port(), "bob");
        registerDevice(ada, "feed");
        registerDevice(bob, "beef");
        Customer(backend.port(), "without a device").open();
        EventStreamClient host(backend, "/api/push/feed");
        EventStreamClient other(backend, "/api/push/feed");
        EventStreamClient bobs(backend, "/api/push/beef");
        for (EventStreamClient *each : {&host, &other, &bobs})
            QTRY_VERIFY_WITH_TIMEOUT(each->received().contains("\r\n\r\n"), timeout);
        const auto last = [&] { return ada.tickets()[0].toObject(); };
        const auto message = [](const QJsonObject &preview) {
            return QJsonObject{{u"source"_s, u"tolvane"_s},
                               {u"message"_s, preview["lastMessage"_L1]}};
        };
        const auto pushed = [&](qsizetype place) { return host.payloads().value(place); };

        const std::string path = ada.open();
        const auto ticket = [&] { return json(ada.get(path)); };
        TRY_COMPARE(host.payloads().size(), 1);
        QCOMPARE(pushed(0), message(last()));
        QCOMPARE(last()["lastMessage"_L1]["isRead"_L1], QJsonValue(false));
        ticket();
        QCOMPARE(last()["lastMessage"_L1]["isRead"_L1], QJsonValue(true));
        ada.write(path, "a human, please");
        TRY_COMPARE(host.payloads().size(), 3);
        QCOMPARE(pushed(2), message(last()));
        const QJsonValue maya = last()["lastMessage"_L1]["sender"_L1];
        QCOMPARE(maya["name"_L1], u"Maya Lindqvist"_s);
        const QUrl portrait(maya["profilePicture"_L1].toString());
        QVERIFY(ada.get(portrait.path().toStdString()).body.starts_with("\x89PNG"));
        ada.write(path, "thanks");
        TRY_COMPARE(host.payloads().size(), 5);
        QCOMPARE(pushed(3), message(last()));
        QCOMPARE(last()["state"_L1], u"closed"_s);
        QCOMPARE(pushed(4),
                 (QJsonObject{{u"source"_s, u"tolvane"_s}, {u"ticketPreview"_s, last()}}));
        ada.write(path, "one more thing");
        TRY_COMPARE(host.payloads().size(), 7);
        const QJsonObject reopened = pushed(5)["ticketPreview"_L1].toObject();
        QCOMPARE(reopened["state"_L1], u"open"_s);
        QCOMPARE(reopened["lastMessage"_L1]["content"_L1], u"one more thing"_s);
        QCOMPARE(reopened["lastMessage"_L1]["sender"_L1]["id"_L1], u"ada"_s);
        QCOMPARE(senders(ticket()), "cacahchch"_L1);
        QCOMPARE(ticket()["state"_L1], u"open"_s);
        QCOMPARE(ticket()["assignee"_L1], u"human agent"_s);

        TRY_COMPARE(other.payloads(), host.payloads());
        bob.open();
        TRY_COMPARE(bobs.payloads().size(), 1);
        QVERIFY(bobs.payloads()[0]["message"_L1]["ticketId"_L1] != last()["id"_L1]);
        QVERIFY(host.received().contains("Content-Type: text/event-stream\r\n"));
        QVERIFY(host.received().contains("Cache-Control: no-store\r\n"));
        QVERIFY(!host.received().contains("X-Tolvane-Customer"));
    }

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

    void hostsComeAndGoWithoutBlocking()
    {
        auto backend = std::make_unique<RunningBackend>();
        std::vector<std::unique_ptr<EventStreamClient>> hosts;
        const auto join = [&] {
            hosts.push_back(std::make_unique<EventStreamClient>(*backend, "/api/push/feed"));
            const auto isAnswered = [&] { return !hosts.back()->received().isEmpty(); };
            return QTest::qWaitFor(isAnswered, timeout) &&
                   hosts.back()->received().startsWith("HTTP/1.1 200");
        };
        // More hosts than may listen at once, one after the other.
        for (int i = 0; i < 100; ++i, hosts.clear())
            QVERIFY(QTest::qWaitFor(join, timeout));
        for (int i = 0; i < 32; ++i)
            QVERIFY(QTest::qWaitFor(join, timeout));
        QVERIFY(!join());
        QVERIFY(hosts.back()->received().startsWith("HTTP/1.1 503"));
        QCOMPARE(Customer(backend->port()).get("/api/tickets").status, 200);

        backend.reset();
        // Each stream was ended properly, and not cut off.
        hosts.pop_back();
        for (const auto &host : hosts)
            TRY_COMPARE(host->received().last(5), "0\r\n\r\n");
    }
};

QTEST_GUILESS_MAIN(PushesTest)
#include "tst_pushes.moc"
