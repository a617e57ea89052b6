// SPDX-License-Identifier: MIT
// The routes for the agents' page, and their effects for customers.
#include "agentclient.h"
#include "eventstreamclient.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;

class AgentRoutesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticketsOfAllCustomers()
    {
        const RunningBackend backend;
        Customer ada(backend.port());
        Customer bob(backend.port(), "bob");
        bob.send("POST", "/api/customer/update", R"({"email":"b@example.org","originalId":"7"})");
        const std::string path = ada.open();
        bob.send("POST", "/api/ticket/create",
                 multipart({{"message", "hi"}, {"deviceInfo[locale]", "de"}, {"channel", "sdk"}}));
        Agent agent(backend);
        QJsonArray tickets = agent.read("tickets").array();
        QCOMPARE(tickets.size(), 2);
        const QJsonObject first = tickets[0].toObject();
        QCOMPARE(first["customer"_L1].toObject(), (QJsonObject{{u"id"_s, u"bob"_s},
                                                               {u"email"_s, u"b@example.org"_s},
                                                               {u"originalId"_s, u"7"_s}}));
        QCOMPARE(first["device"_L1], (QJsonObject{{u"locale"_s, u"de"_s}}));
        QCOMPARE(first["channel"_L1], u"sdk"_s);
        ada.write(path, "second");
        tickets = agent.read("tickets").array();
        QCOMPARE(tickets[0]["id"_L1].toString().toStdString(), idIn(path));
        QCOMPARE(tickets[0]["messages"_L1][0]["content"_L1], u"second"_s);
        QCOMPARE(agent.read("ticket/" + idIn(path))["messages"_L1].toArray().size(), 2);
    }

    void answersReachTheCustomer()
    {
        const RunningBackend backend;
        Customer ada(backend.port());
        ada.send("POST", "/api/customer/device/update", R"({"deviceToken":"feed"})");
        const std::string path = ada.open();
        Agent agent(backend);
        const std::string ticket = "ticket/" + idIn(path);
        const std::string png = "\x89PNG";
        const QJsonDocument picture =
            json(agent.post("pictures", multipart({{"attachments[]", png, "me \u00FC.png"}})));
        const std::string kept = picture["path"_L1].toString().toStdString();
        EventStreamClient host(backend, "/api/push/feed");

        const QJsonObject human =
            json(agent.post(ticket + "/message", multipart({{"as", "human agent"},
                                                            {"name", "Zo\u00EB"},
                                                            {"picture", kept},
                                                            {"message", ""},
                                                            {"attachments[]", png, "a.png"}})))
                .object();
        QCOMPARE(human["sender"_L1]["name"_L1], u"Zo\u00EB"_s);
        QCOMPARE(human["sender"_L1]["profilePicture"_L1], picture["url"_L1]);
        const QUrl address(picture["url"_L1].toString());
        QCOMPARE(ada.get(address.path(QUrl::FullyEncoded).toStdString()).body, png);
        QCOMPARE(human["attachments"_L1].toArray().size(), 1);
        // The push and the fetched message are equal, so that clients may use either.
        TRY_COMPARE(host.payloads().size(), 1);
        QCOMPARE(host.payloads()[0]["message"_L1].toObject(), human);
        QCOMPARE(ada.tickets()[0]["lastMessage"_L1].toObject(), human);

        QCOMPARE(agent.read(ticket)["assignee"_L1], u"human agent"_s);
        // Reading on the agent page does not mark messages as read.
        QCOMPARE(agent.read(ticket)["messages"_L1][1]["isRead"_L1], QJsonValue(false));

        agent.post(ticket + "/message", multipart({{"as", "ai agent"}, {"message", "ai"}}));
        TRY_COMPARE(host.digest(), "ai");
        QCOMPARE(host.payloads()[1]["message"_L1]["sender"_L1]["id"_L1], u"ai-agent"_s);
        agent.post(ticket, R"({"state":"closed"})");
        agent.post(ticket, R"({"state":"closed"})");
        agent.post(ticket, R"({"state":"open"})");
        TRY_COMPARE(host.digest(), "aiclosedopen");
        const std::string made = R"({"message":{"content":"made\nup"},"source":"elsewhere"})";
        QCOMPARE(agent.post(ticket + "/push", made).status, 204);
        TRY_COMPARE(host.digest(), "aiclosedopenmade\nup");
        QCOMPARE(compact(host.payloads().last()), made);
        QCOMPARE(
            agent.post(ticket + "/push", "{\"a\":\"" + std::string(17 << 10, 'x') + "\"}").status,
            413);
    }

    void humanAnswersStopTheScript()
    {
        RunningBackend backend(inMemory, 5ms);
        Agent agent(backend);
        Customer ada(backend.port());
        const auto sendersIn = [&](const std::string &path) {
            return senders(agent.read("ticket/" + idIn(path)));
        };
        const auto answer = [&](const std::string &path, const char *as) {
            agent.post("ticket/" + idIn(path) + "/message",
                       multipart({{"as", as}, {"message", "x"}}));
        };
        agent.post("automatic", R"({"automatic":false})");
        const std::string waiting = ada.open();
        const std::string answered = ada.open();
        const std::string taken = ada.open();
        const std::string closed = ada.open();
        answer(answered, "ai agent");
        agent.post("ticket/" + idIn(taken), R"({"assignee":"human agent"})");
        agent.post("ticket/" + idIn(closed), R"({"state":"closed"})");
        agent.post("automatic", R"({"automatic":true})");
        // Pending replies are sent, but not in tickets that were answered, taken over or closed.
        TRY_COMPARE(sendersIn(waiting), "ca"_L1);
        QCOMPARE(sendersIn(answered), "ca"_L1);
        QCOMPARE(sendersIn(taken), "c"_L1);
        QCOMPARE(sendersIn(closed), "c"_L1);

        answer(waiting, "human agent");
        ada.write(waiting, "to you");
        ada.write(answered, "to the script");
        TRY_COMPARE(sendersIn(answered), "caca"_L1);
        QCOMPARE(sendersIn(waiting), "cahc"_L1);
        agent.post("ticket/" + idIn(taken), R"({"assignee":"ai agent"})");
        TRY_COMPARE(sendersIn(taken), "ca"_L1);
    }

    void settingsReachCustomersAndPersist()
    {
        const QTemporaryDir folder;
        const std::string database = folder.filePath(u"backend.sqlite"_s).toStdString();
        QByteArray updatedAt;
        for (int start = 0; start < 2; ++start) {
            RunningBackend backend(database, 5ms);
            Agent agent(backend);
            Customer ada(backend.port());
            const auto settings = [&] { return agent.read("settings").object(); };
            QCOMPARE(settings()["automatic"_L1], QJsonValue(start == 0));
            if (start == 0) {
                const QJsonValue logo = json(agent.post(
                    "pictures", multipart({{"attachments[]", "GIF", "logo.png"}})))["url"_L1];
                QJsonObject branding = settings()["branding"_L1].toObject();
                updatedAt = branding["updatedAt"_L1].toString().toUtf8();
                branding["primaryDark"_L1] = u"#010203"_s;
                branding["logoLight"_L1] = logo;
                QCOMPARE(agent.post("branding", compact(branding)).status, 200);
                const std::string schedules = R"([{"id":"s","days":["Sun"],)"
                                              R"("startTime":"2026-01-05T07:15:00+02:00",)"
                                              R"("endTime":"2026-01-05T08:00:00Z"}])";
                QCOMPARE(agent.post("schedules", schedules).status, 200);
                ada.write(ada.open(), "your hours?");
                TRY_COMPARE(
                    ada.tickets()[0]["lastMessage"_L1]["content"_L1].toString(),
                    "My colleagues are available **Sun 07:15-08:00**. I am available around the clock."_L1);
                agent.post("automatic", R"({"automatic":false})");
            }
            const QJsonDocument branding = json(ada.get("/api/settings"));
            QCOMPARE(branding["primaryDark"_L1], u"#010203"_s);
            QVERIFY(branding["updatedAt"_L1].toString().toUtf8() != updatedAt);
            // With the port of this run.
            const QUrl logo(branding["logoLight"_L1].toString());
            QCOMPARE(logo.port(), backend.port());
            QCOMPARE(ada.get(logo.path().toStdString()).body, "GIF"s);
            const QJsonDocument ticket = json(ada.get(ada.open()));
            QCOMPARE(ticket["schedules"_L1][0]["id"_L1], u"s"_s);
        }
    }

    void changesReachThePages()
    {
        RunningBackend backend;
        Customer ada(backend.port());
        Agent agent(backend);
        std::vector<std::unique_ptr<EventStreamClient>> pages;
        const auto join = [&] {
            pages.push_back(std::make_unique<EventStreamClient>(backend, "/agent/api/events"));
            return QTest::qWaitFor([&] { return pages.back()->received().contains("\r\n\r\n"); },
                                   timeout);
        };
        QVERIFY(join());
        const auto events = [&] { return pages[0]->lines("event: ").join(' '); };
        const std::string path = ada.open();
        TRY_COMPARE(events(), "ticket");
        agent.post("ticket/" + idIn(path) + "/message",
                   multipart({{"as", "ai agent"}, {"message", "x"}}));
        TRY_COMPARE(events(), "ticket ticket");
        const QJsonObject change = pages[0]->payloads().last();
        QCOMPARE(change, agent.read("tickets")[0].toObject());
        ada.get(path); // Marks the messages as read.
        TRY_COMPARE(events(), "ticket ticket ticket");
        ada.get(path);
        agent.post("automatic", R"({"automatic":true})");
        TRY_COMPARE(events(), "ticket ticket ticket settings");
        while (pages.size() < 16)
            QVERIFY(join());
        QVERIFY(join());
        QVERIFY(pages.back()->received().startsWith("HTTP/1.1 503"));
    }

    void olderDatabasesAreMigrated()
    {
        const QTemporaryDir folder;
        const std::string path = folder.filePath(u"backend.sqlite"_s).toStdString();
        const std::string id =
            Store(openDatabase(path)).createTicket("ada", {{}, {}, {"x", {}}}, 0).id;
        Database(path).executeScript(
            "ALTER TABLE tickets DROP COLUMN automatic;"
            "ALTER TABLE messages DROP COLUMN person_name;"
            "ALTER TABLE messages DROP COLUMN person_picture;"
            "DROP TABLE pictures; DROP TABLE settings; PRAGMA user_version = 1");
        Store store(openDatabase(path));
        QVERIFY(store.agentConversation(id)->isAutomatic);
        QVERIFY(store.addAnswer(id, {Author::Human, Person{"Zoe", {}}, {"y", {}}}));
        QCOMPARE(store.readTicket("ada", id)->messages[1].person->name, "Zoe"s);
    }
};

QTEST_GUILESS_MAIN(AgentRoutesTest)
#include "tst_agentroutes.moc"
