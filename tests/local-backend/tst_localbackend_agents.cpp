// SPDX-License-Identifier: MIT
// What agents answer, and when.
#include "agent.h"
#include "runningbackend.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace tolvane::backend;

#define TRY_COMPARE(actual, expected)                                                              \
    QTRY_COMPARE_WITH_TIMEOUT(actual, expected, static_cast<int>(patience.count()))

class LocalBackendAgents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_data();
    void rules();
    void fromAiToHumanToCloseAndBack();
    void repliesComeInOrder();
    void owedReplyIsGivenOnceAfterARestart();
};

void LocalBackendAgents::rules_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("attachments");
    QTest::addColumn<bool>("isHuman");
    QTest::addColumn<int>("effect");
    QTest::addColumn<QString>("part");
    const auto row = [](const char *text, Effect effect, const char *part, bool isHuman = false,
                        int attachments = 0) {
        QTest::addRow("%s%s", text, isHuman ? " (human)" : "")
            << QString::fromUtf8(text) << attachments << isHuman << static_cast<int>(effect)
            << QString::fromUtf8(part);
    };
    row("Where is my PARCEL?", Effect::None, "2 to 4 working days");
    row("hi, i want my money back", Effect::None, "Hello! You can return");
    row("When are you open?", Effect::None, "**Mon 09:00-18:00**");
    row("\U0001F600", Effect::None, "Write **human**");
    row("", Effect::None, "I have your attachment. ", false, 1);
    row("see my password page", Effect::None, "I have your 3 attachments. Choose", false, 3);
    row("real-person, please", Effect::HandOver, "handing you over");
    row("m\u00F6chte einen MENSCHEN", Effect::HandOver, "handing you over");
    row("inhumane agents' agency", Effect::None, "I can tell you");
    row("are you human?", Effect::None, "a person already", true);
    row("Tsch\u00FCss", Effect::Close, "closing");
    row("bye", Effect::Close, "Have a good day", true);
    row("it is not solved", Effect::None, "I can tell you");
    row("Thanks! And how do I get a refund?", Effect::None, "30 days");
    row("xyzzy", Effect::None, "look into it", true);
}

void LocalBackendAgents::rules()
{
    QFETCH(QString, text);
    QFETCH(int, attachments);
    QFETCH(bool, isHuman);
    QFETCH(int, effect);
    QFETCH(QString, part);
    const std::string content = text.toStdString();
    Turn turn{.assignee = isHuman ? Author::Human : Author::Ai,
              .text = content,
              .attachmentCount = attachments,
              .isOvertaken = false,
              .openingHours = "Mon 09:00-18:00"};
    const Answer answer = answerTo(turn);
    QCOMPARE(static_cast<int>(answer.effect), effect);
    QVERIFY2(answer.text.find(part.toStdString()) != std::string::npos, answer.text.c_str());
    // A customer who has written again is not sent away.
    turn.isOvertaken = true;
    QVERIFY(answerTo(turn).effect != Effect::Close);
}

void LocalBackendAgents::fromAiToHumanToCloseAndBack()
{
    const RunningBackend backend(inMemory, 5ms);
    Customer customer(backend.port());
    const auto last = [&] { return customer.tickets()[0]["lastMessage"_L1]; };
    const std::string path = customer.open();
    const auto ticket = [&] { return json(customer.get(path)); };
    // The types of the senders by their first letters, oldest first.
    const auto senders = [&] {
        QString letters;
        for (const QJsonValue message : ticket()["messages"_L1].toArray())
            letters += message["sender"_L1]["type"_L1].toString().first(1);
        return letters;
    };
    TRY_COMPARE(last()["sender"_L1]["type"_L1].toString(), "ai agent"_L1);
    QCOMPARE(last()["isRead"_L1], QJsonValue(false));
    QCOMPARE(senders(), "ca"_L1);
    QCOMPARE(last()["isRead"_L1], QJsonValue(true));

    customer.write(path, "a human, please");
    TRY_COMPARE(senders(), "cacah"_L1);
    QCOMPARE(ticket()["assignee"_L1].toString(), "human agent"_L1);
    QCOMPARE(last()["sender"_L1]["name"_L1].toString(), "Maya Lindqvist"_L1);
    const QUrl portrait(last()["sender"_L1]["profilePicture"_L1].toString());
    QCOMPARE(customer.get(portrait.path().toStdString()).body.substr(0, 4), std::string("\x89PNG"));

    customer.write(path, "solved, thanks");
    TRY_COMPARE(ticket()["state"_L1].toString(), "closed"_L1);
    QCOMPARE(senders(), "cacahch"_L1);
    customer.write(path, "one more thing");
    QCOMPARE(ticket()["state"_L1].toString(), "open"_L1);
    TRY_COMPARE(senders(), "cacahchch"_L1);
}

// All of it is written before there is a desk, so that no answer comes before the next message.
void LocalBackendAgents::repliesComeInOrder()
{
    Store store(openDatabase(inMemory));
    const std::string id = store.createTicket("ada", {{}, {}, {"thanks", {}}}, 0).id;
    for (const char *text : {"where is my parcel", "a human please", "still there"})
        QVERIFY(store.addMessage("ada", id, {text, {}}, 0));
    const Desk desk(store, {0ms, {}});
    const auto messages = [&] { return store.readTicket("ada", id)->messages; };
    TRY_COMPARE(messages().size(), std::size_t(9));
    QVERIFY(messages()[5].content.find("2 to 4 working days") != std::string::npos);
    QVERIFY(messages()[6].content.find("handing you over") != std::string::npos);
    QVERIFY(messages()[7].author == Author::Human);
    QCOMPARE(messages()[8].content, introduction());
    QVERIFY(store.readTicket("ada", id)->state == State::Open);
}

void LocalBackendAgents::owedReplyIsGivenOnceAfterARestart()
{
    const QTemporaryDir folder;
    const std::string path = folder.filePath(u"backend.sqlite"_s).toStdString();
    const std::string id =
        Store(openDatabase(path)).createTicket("ada", {{}, {}, {"a human", {}}}, 0).id;
    for (int start = 0; start < 2; ++start) {
        // Two desks at one file, as of two backends, do not both answer.
        Store store(openDatabase(path));
        Store other(openDatabase(path));
        const Desk desk(store, {0ms, {}});
        const Desk otherDesk(other, {0ms, {}});
        TRY_COMPARE(store.readTicket("ada", id)->messages.size(), std::size_t(3));
        QVERIFY(!store.giveDueReply([](const PendingReply &) { return Settlement{}; }));
    }
}

QTEST_GUILESS_MAIN(LocalBackendAgents)
#include "tst_localbackend_agents.moc"
