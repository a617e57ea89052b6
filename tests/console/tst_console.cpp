// SPDX-License-Identifier: MIT
#include "program.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtNetwork/QTcpServer>
#include <QtTest/QTest>

using namespace tolvane::test;

namespace {

const QString ticket = QStringLiteral("ticket");
const QString nowhere = QStringLiteral("http://127.0.0.1:1/api");

bool isOk(const QJsonObject &reply)
{
    return reply.value(QLatin1String("ok")).toBool();
}

QString errorOf(const QJsonObject &reply)
{
    return reply.value(QLatin1String("error")).toString();
}

QJsonObject onTicket(int handle, QJsonObject more = {})
{
    more.insert(ticket, handle);
    return more;
}

QJsonArray messagesOf(ConsoleProgram &console, int handle)
{
    return console.request(QStringLiteral("ticket.state"), onTicket(handle))
        .value(ticket)
        .toObject()
        .value(QLatin1String("messages"))
        .toArray();
}

/// Waits until the conversation's state has `value` at `key` of its ticket.
bool reaches(ConsoleProgram &console, int handle, const QString &key, const QString &value)
{
    return QTest::qWaitFor(
        [&] {
            return console.request(QStringLiteral("ticket.state"), onTicket(handle))
                       .value(ticket)
                       .toObject()
                       .value(key)
                       .toString() == value;
        },
        15'000);
}

} // namespace

class ConsoleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLineIsAnswered_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QJsonValue>("id");
        QTest::addColumn<QString>("error");
        QTest::newRow("no JSON") << QByteArray("garbage") << QJsonValue()
                                 << "The line is not a JSON object";
        QTest::newRow("no object")
            << QByteArray("[1]") << QJsonValue() << "The line is not a JSON object";
        QTest::newRow("empty") << QByteArray() << QJsonValue() << "The line is not a JSON object";
        QTest::newRow("no command") << QByteArray(R"({"id":"a"})")
                                    << QJsonValue(QStringLiteral("a")) << "Unknown command: \"\"";
        QTest::newRow("unreadable id")
            << QByteArray(R"({"id":[],"cmd":"x"})") << QJsonValue() << "Unknown command: \"x\"";
        QTest::newRow("missing argument") << QByteArray(R"({"id":7,"cmd":"initialize"})")
                                          << QJsonValue(7) << "Argument \"key\" is missing";
        QTest::newRow("wrong type") << QByteArray(R"({"id":7,"cmd":"setOpen","open":"yes"})")
                                    << QJsonValue(7) << "Argument \"open\" must be true or false";
        QTest::newRow("unknown environment")
            << QByteArray(R"({"id":7,"cmd":"setEnvironment","environment":"moon"})")
            << QJsonValue(7) << "There is no environment \"moon\"";
        QTest::newRow("before initialize") << QByteArray(R"({"id":7,"cmd":"open"})")
                                           << QJsonValue(7) << "Tolvane is not initialized";
        QTest::newRow("no such row") << QByteArray(R"({"id":7,"cmd":"ticket.open","ticketId":"x"})")
                                     << QJsonValue(7) << "The list has no ticket \"x\"";
        QTest::newRow("no such handle") << QByteArray(R"({"id":7,"cmd":"ticket.state","ticket":3})")
                                        << QJsonValue(7) << "There is no open ticket 3";
        QTest::newRow("a good one")
            << QByteArray(R"({"id":7,"cmd":"polling"})") << QJsonValue(7) << "";
    }

    void everyLineIsAnswered()
    {
        QFETCH(const QByteArray, line);
        QFETCH(const QJsonValue, id);
        QFETCH(const QString, error);
        const QTemporaryDir config;
        ConsoleProgram console(config.path(), nowhere);
        console.send(line);
        const QJsonObject reply =
            console.await([](const QJsonObject &) { return true; }); // Nothing else comes.
        QCOMPARE(reply.value(QLatin1String("reply")), id);
        QCOMPARE(isOk(reply), error.isEmpty());
        QCOMPARE(errorOf(reply), error);
        QVERIFY(isOk(console.request(QStringLiteral("settings")))); // The session goes on.
        QCOMPARE(console.end(), 0);
        QCOMPARE(console.errors(), QByteArray());
    }

    void composeTakesAllOrNothing()
    {
        const QTemporaryDir config;
        ConsoleProgram console(config.path(), nowhere);
        QCOMPARE(console.request(QStringLiteral("ticket.new")).value(ticket).toInt(), 1);
        const QJsonObject inline1 = {{QStringLiteral("name"), QStringLiteral("a.png")},
                                     {QStringLiteral("mimeType"), QStringLiteral("image/png")},
                                     {QStringLiteral("base64"), QStringLiteral("AAEC")}};
        const QString compose = QStringLiteral("ticket.compose");
        const QString files = QStringLiteral("attachments");
        QVERIFY(isOk(console.request(
            compose, onTicket(1, {{QStringLiteral("message"), QStringLiteral("hello")},
                                  {files, QJsonArray{inline1, inline1}}}))));
        for (const QJsonObject &bad :
             {QJsonObject{{QStringLiteral("path"), QStringLiteral("/no/such/file")}},
              QJsonObject{{QStringLiteral("path"), QStringLiteral("/")}}, QJsonObject()}) {
            const QJsonObject reply = console.request(
                compose, onTicket(1, {{QStringLiteral("message"), QStringLiteral("lost")},
                                      {files, QJsonArray{bad}}}));
            QVERIFY(!isOk(reply) && !errorOf(reply).isEmpty());
        }
        const QJsonObject state = console.request(QStringLiteral("ticket.state"), onTicket(1));
        QCOMPARE(state.value(QLatin1String("message")), QStringLiteral("hello"));
        QCOMPARE(state.value(QLatin1String("attachmentCount")), 1);
        QCOMPARE(state.value(QLatin1String("state")), QStringLiteral("empty"));
    }

    void endsInTheMiddleOfEverything_data()
    {
        QTest::addColumn<bool>("byQuit");
        QTest::newRow("end of input") << false;
        QTest::newRow("quit") << true;
    }

    void endsInTheMiddleOfEverything()
    {
        QFETCH(const bool, byQuit);
        QTcpServer stalling; // Accepts and says nothing.
        QVERIFY(stalling.listen(QHostAddress::LocalHost));
        const QTemporaryDir config;
        ConsoleProgram console(
            config.path(), QStringLiteral("http://127.0.0.1:%1/api").arg(stalling.serverPort()));
        QVERIFY(isOk(console.request(QStringLiteral("initialize"),
                                     {{QStringLiteral("key"), QStringLiteral("k")}})));
        console.request(QStringLiteral("ticket.new"));
        console.request(QStringLiteral("ticket.compose"),
                        onTicket(1, {{QStringLiteral("message"), QStringLiteral("hi")}}));
        console.send(R"({"id":"a","cmd":"ticket.create","ticket":1})");
        console.send(R"({"id":"b","cmd":"tickets.reload"})");
        console.send(R"({"id":"c","cmd":"tickets.reload"})");
        QVERIFY(isOk(console.request(QStringLiteral("ticket.close"), onTicket(1))));
        if (byQuit)
            QVERIFY(isOk(console.request(QStringLiteral("quit"))));
        QCOMPARE(console.end(), 0);
        QCOMPARE(console.errors(), QByteArray());
    }

    void aConversationFromFirstWordToRestart()
    {
        const QTemporaryDir folder;
        auto backend = std::make_unique<BackendProgram>(folder.path());
        auto console = std::make_unique<ConsoleProgram>(folder.path(), backend->url());
        const auto say = [&](int handle, const char *operation, const char *text) {
            console->request(
                QStringLiteral("ticket.compose"),
                onTicket(handle, {{QStringLiteral("message"), QString::fromUtf8(text)}}));
            return isOk(console->request(QString::fromLatin1(operation), onTicket(handle)));
        };
        const auto awaitAnswer = [&] {
            return console
                ->awaitEvent(QStringLiteral("notification"), QStringLiteral("didReceiveMessage"))
                .value(QLatin1String("userInfo"))
                .toObject();
        };
        console->request(QStringLiteral("setAnalyticsDelegate"),
                         {{QStringLiteral("enabled"), true}});
        console->request(QStringLiteral("initialize"),
                         {{QStringLiteral("key"), QStringLiteral("k")}});
        console->request(QStringLiteral("ticket.new"));
        console->request(
            QStringLiteral("ticket.compose"),
            onTicket(1, {{QStringLiteral("attachments"),
                          QJsonArray{QJsonObject{
                              {QStringLiteral("name"), QStringLiteral("photo.png")},
                              {QStringLiteral("mimeType"), QStringLiteral("image/png")},
                              {QStringLiteral("base64"), QStringLiteral("iVBORw0KGgo=")}}}}}));
        QVERIFY(say(1, "ticket.create", "Hello, see the photo 📦"));
        const QJsonObject first = messagesOf(*console, 1).at(0).toObject();
        QCOMPARE(first.value(QLatin1String("content")), QStringLiteral("Hello, see the photo 📦"));
        QVERIFY(first.value(QLatin1String("attachments"))
                    .toArray()
                    .at(0)
                    .toString()
                    .startsWith(QLatin1String("http://127.0.0.1")));

        const QJsonObject reply = awaitAnswer(); // By polling: nothing pushes here.
        QCOMPARE(reply.value(QLatin1String("sender")).toObject().value(QLatin1String("type")),
                 QStringLiteral("ai agent"));
        QVERIFY(say(1, "ticket.send", "I want to talk to a human"));
        QVERIFY(!awaitAnswer().isEmpty());
        QVERIFY(reaches(*console, 1, QStringLiteral("assignee"), QStringLiteral("human agent")));
        QVERIFY(say(1, "ticket.send", "Thanks, that is solved, bye"));
        QVERIFY(!awaitAnswer().isEmpty());
        QVERIFY(reaches(*console, 1, QStringLiteral("state"), QStringLiteral("closed")));
        QVERIFY(
            !console
                 ->awaitEvent(QStringLiteral("analytics"), QStringLiteral("tolvane_ticket_created"))
                 .isEmpty());

        const QJsonObject customer = console->request(QStringLiteral("customer"));
        const qsizetype count = messagesOf(*console, 1).size();
        QCOMPARE(console->end(), 0);
        QCOMPARE(console->errors(), QByteArray());
        backend.reset();

        backend = std::make_unique<BackendProgram>(folder.path());
        console = std::make_unique<ConsoleProgram>(folder.path(), backend->url());
        console->request(QStringLiteral("initialize"),
                         {{QStringLiteral("key"), QStringLiteral("k")}});
        QCOMPARE(console->request(QStringLiteral("customer")).value(QLatin1String("customerId")),
                 customer.value(QLatin1String("customerId")));
        console->request(QStringLiteral("tickets.load"));
        const QJsonArray rows = console->request(QStringLiteral("tickets.state"))
                                    .value(QLatin1String("value"))
                                    .toArray();
        QCOMPARE(rows.size(), 1);
        QVERIFY(isOk(console->request(
            QStringLiteral("ticket.open"),
            {{QStringLiteral("ticketId"), rows.at(0).toObject().value(QLatin1String("id"))}})));
        console->request(QStringLiteral("ticket.fetch"), onTicket(1));
        QVERIFY(messagesOf(*console, 1).size() >= count);
        QVERIFY(say(1, "ticket.send", "One more question"));
        QVERIFY(!awaitAnswer().isEmpty());
    }
};

QTEST_GUILESS_MAIN(ConsoleTest)
#include "tst_console.moc"
