// SPDX-License-Identifier: MIT
#include "consoleprogram.h"
#include "eventstream.h"
#include "testing/backendprogram.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane::test;
using tolvane::console::EventStream;

namespace {

const QString ticket = u"ticket"_s;
const QString nowhere = u"http://127.0.0.1:1/api"_s;

bool isOk(const QJsonObject &reply)
{
    return reply.value("ok"_L1).toBool();
}

QString errorOf(const QJsonObject &reply)
{
    return reply.value("error"_L1).toString();
}

QJsonObject onTicket(int handle, QJsonObject more = {})
{
    more.insert(ticket, handle);
    return more;
}

} // namespace

class ConsoleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineIsAnswered()
    {
        const QTemporaryDir config;
        ConsoleProgram console(config.path(), nowhere);
        const std::tuple<QByteArray, QJsonValue, QString> cases[] = {
            {"garbage", {}, u"The line is not a JSON object"_s},
            {"", {}, u"The line is not a JSON object"_s},
            {R"({"id":[],"cmd":"x"})", {}, u"Unknown command: \"x\""_s},
            {R"({"id":7,"cmd":"initialize"})", 7, u"Argument \"key\" is missing"_s},
            {R"({"id":7,"cmd":"setOpen","open":"yes"})", 7,
             u"Argument \"open\" must be true or false"_s},
            {R"({"id":7,"cmd":"open"})", 7, u"Tolvane is not initialized"_s},
            {R"({"id":7,"cmd":"ticket.state","ticket":3})", 7, u"There is no open ticket 3"_s},
            {R"({"id":7,"cmd":"polling"})", 7, {}}};
        for (const auto &[line, id, error] : cases) {
            console.send(line);
            const QJsonObject reply = console.await([](const QJsonObject &) { return true; });
            QCOMPARE(reply.value("reply"_L1), id);
            QCOMPARE(isOk(reply), error.isEmpty());
            QCOMPARE(errorOf(reply), error);
        }
        QCOMPARE(console.end(), 0);
        QCOMPARE(console.errors(), QByteArray());
    }

    void serverSentEvents_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArrayList>("events");
        QTest::addColumn<QByteArray>("lastId");
        const auto row = [](const char *name, const QByteArray &bytes, const QByteArrayList &events,
                            const char *lastId = "") {
            QTest::newRow(name) << bytes << events << QByteArray(lastId);
        };
        row("LF", "id: 1\ndata: a\n\ndata: b\n\n", {"a", "b"}, "1");
        row("CR LF", "id: 1\r\ndata: a\r\n\r\ndata: b\r\n\r\n", {"a", "b"}, "1");
        row("CR", "id: 1\rdata: a\r\rdata: b\r\r", {"a", "b"}, "1");
        row("several lines", "data: a\ndata:b:c\ndata\ndata:  d\n\n", {"a\nb:c\n\n d"});
        row("comments and other fields", ":data: x\nevent: x\nretry: 1\n\ndata: a\n\n", {"a"});
        row("byte order mark",
            "\xEF\xBB\xBF"
            "data: a\n\n",
            {"a"});
        row("id alone", "id: 7\n\n", {}, "7");
        row("empty id clears the id", "id: 7\n\nid\n\n", {});
        row("id with a NUL", QByteArray("id: 7\n\nid: ?8\n\n").replace('?', '\0'), {}, "7");
        row("incomplete event", "id: 7\ndata: a\n", {});
        const QByteArray halfTheLimit(EventStream::maximumSize / 2, 'x');
        row("long line", "data: " + halfTheLimit + halfTheLimit + "\n\ndata: b\n\n", {"", "b"});
        row("long event", "data: " + halfTheLimit + "\ndata: " + halfTheLimit + "\n\ndata: b\n\n",
            {"", "b"});
    }

    void serverSentEvents()
    {
        QFETCH(const QByteArray, bytes);
        EventStream whole;
        QTEST(whole.read(bytes), "events");
        QTEST(whole.lastId(), "lastId");
        EventStream inPieces;
        QByteArrayList events;
        for (const char byte : bytes)
            events += inPieces.read(QByteArray(1, byte));
        QTEST(events, "events");
    }

    void aConversationSurvivesARestart()
    {
        const QTemporaryDir folder;
        QJsonValue customerId;
        for (const bool isRestarted : {false, true}) {
            const BackendProgram backend(folder.path());
            ConsoleProgram console(folder.path(), backend.url());
            console.request(u"setAnalyticsDelegate"_s, {{u"enabled"_s, true}});
            console.request(u"initialize"_s, {{u"key"_s, u"k"_s}});
            if (isRestarted) {
                QCOMPARE(console.request(u"customer"_s)["customerId"_L1], customerId);
                console.request(u"tickets.load"_s);
                const QJsonArray rows = console.request(u"tickets.state"_s)["value"_L1].toArray();
                QCOMPARE(rows.size(), 1);
                const QJsonObject row{{u"ticketId"_s, rows[0]["id"_L1]}};
                QVERIFY(isOk(console.request(u"ticket.open"_s, row)));
                console.request(u"ticket.fetch"_s, onTicket(1));
                const QJsonObject state = console.request(u"ticket.state"_s, onTicket(1));
                QCOMPARE(state[ticket]["messages"_L1].toArray().size(), 2);
            } else {
                console.request(u"ticket.new"_s);
            }
            console.request(u"ticket.compose"_s, onTicket(1, {{u"message"_s, u"hello"_s}}));
            const QString send = isRestarted ? u"ticket.send"_s : u"ticket.create"_s;
            QVERIFY(isOk(console.request(send, onTicket(1))));
            // By polling, because there is no push channel here.
            const QJsonObject answer =
                console.awaitEvent(u"notification"_s, u"didReceiveMessage"_s);
            QCOMPARE(answer["userInfo"_L1]["sender"_L1]["type"_L1], u"ai agent"_s);
            if (!isRestarted) {
                const QString created = u"tolvane_ticket_created"_s;
                QVERIFY(!console.awaitEvent(u"analytics"_s, created).isEmpty());
            }
            customerId = console.request(u"customer"_s)["customerId"_L1];
            QVERIFY(isOk(console.request(u"quit"_s)));
            QCOMPARE(console.end(), 0);
            QCOMPARE(console.errors(), QByteArray());
        }
    }
};

QTEST_GUILESS_MAIN(ConsoleTest)
#include "tst_console.moc"
