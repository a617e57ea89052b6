// SPDX-License-Identifier: MIT
// The routes for customers, and the scripted agents behind them.
#include "agent.h"
#include "runningbackend.h"

#include <QtCore/QTemporaryDir>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

#include <future>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;

class LocalBackend : public QObject
{
    Q_OBJECT

    void check(int status, const std::string &method, const std::string &path,
               const std::string &body = {}, const Headers &headers = {})
    {
        const std::string what = method + ' ' + path.substr(0, 80) + ' ' + body.substr(0, 200);
        Customer customer(m_backend.port(), "customer-" + std::to_string(++m_customers));
        const httplib::Response response = customer.send(method, "/api/" + path, body, headers);
        QVERIFY2(response.status == status, (what + std::to_string(response.status)).c_str());
        QVERIFY2(response.body.empty() == (status == 204 || status == 304), what.c_str());
        QVERIFY2(json(response)["error"_L1].isString() == (status >= 400), what.c_str());
        QCOMPARE(customer.tickets().size(), status == 200 && method == "POST" ? 1 : 0);
    }

private Q_SLOTS:
    void settingsHandshake()
    {
        for (const char *query : {"", "?updatedAt", "?updatedAt=2025-01-15T09:30:00%2B0000"})
            check(200, "GET", std::string("settings") + query);
        check(304, "GET", "settings?updatedAt=2026-01-15T09%3A30%3A00%2B0000");
        check(304, "GET", "settings?x&updatedAt=2026-01-15T09:30:00+0000");
    }

    void keysAndIds()
    {
        for (const char *key : {"Bearer first%41", "bearer second"})
            check(200, "GET", "tickets", {}, {{"Authorization", key}});
        for (const char *key : {"", "Bearer firstA", "Bearer firs", "Bearer ", "Basic second"}) {
            for (const char *path : {"tickets", "push/feed"})
                check(401, "GET", path, {}, {{"Authorization", key}});
        }
        for (const std::string &id : {std::string(129, 'a'), std::string("\xC3\xBC")})
            check(400, "GET", "tickets", {}, {{"X-Tolvane-Customer", id}});
        const auto answered = [this](const std::string &id) {
            const auto response = Customer(m_backend.port(), id).get("/api/tickets");
            return response.get_header_value("X-Tolvane-Customer");
        };
        // This HTTP client decodes percent escapes in headers that it receives.
        QCOMPARE(answered("ada%2540x"), std::string("ada%40x"));
        QCOMPARE(answered(std::string(128, '~')), std::string(128, '~'));
        const std::string assigned = answered({});
        QCOMPARE(assigned.size(), std::size_t(26));
        QVERIFY(answered({}) != assigned);

        Customer owner(m_backend.port(), assigned);
        Customer other(m_backend.port(), "other");
        const std::string path = owner.open();
        QCOMPARE(other.get(path).status, 404);
        QCOMPARE(other.write(path, "mine now").status, 404);
        QCOMPARE(other.tickets().size(), 0);
        QCOMPARE(json(owner.get(path))["messages"_L1].toArray().size(), 1);
    }

    void badRequests()
    {
        check(204, "POST", "customer/update", R"({"email":null,"originalId":"7"})");
        check(204, "POST", "customer/device/update", R"({"deviceToken":"00ff"})");
        check(400, "POST", "customer/device/update", R"({"originalId":"7"})");
        const std::string deep(100'000, '[');
        for (const char *body : {"{\"email\":1}", "{", "[]", "{\"email\":\"\xFF\"}", deep.c_str()})
            check(400, "POST", "customer/update", body);

        const std::string field = "--edge\r\nContent-Disposition: form-data; name=message\r\n\r\nx";
        const std::string end = "\r\n--edge--";
        check(200, "POST", "ticket/create", field + end + "\r\nepilogue");
        check(413, "POST", "ticket/create", field + std::string(2 << 20, 'x') + end);
        for (const std::string &part :
             {"\r\n\r\nx"s, "\r\nnonsense\r\n\r\nx"s, "\r\nContent-Disposition: x"s,
              "\r\nContent-Disposition: x; name=\"a\r\n\r\nx"s,
              "\r\nA:" + std::string(500'000, ' ') + "\r\n\r\nx"})
            check(400, "POST", "ticket/create", "--edge" + part + end);
        for (const std::string &body :
             {std::string(), field + "\r\n--", "--c" + field + "\r\n--c--"})
            check(400, "POST", "ticket/create", body);
        check(400, "POST", "ticket/create", multipart({{"channel", "sdk"}}));
        check(400, "POST", "ticket/create", multipart({{"message", ""}}));
        check(400, "POST", "ticket/create", multipart({{"message", "\xC3"}}));
        check(400, "POST", "ticket/create", multipart({{"message", "a"}, {"message", "b"}}));
        const FormPart badName{"attachments[]", "x", "\xFF"};
        check(400, "POST", "ticket/create", multipart({{"message", "x"}, badName}));
        const std::string quoted = "Multipart/Form-Data; charset=x; Boundary=\"edge\"";
        check(200, "POST", "ticket/create", field + end, {{"Content-Type", quoted}});
        for (const char *type : {"multipart/form-data", ""})
            check(400, "POST", "ticket/create", field + end, {{"Content-Type", type}});
        for (const char *ticket : {"ticket/none", "ticket/%00%2F..%2F%27--"})
            check(404, "POST", ticket, field + end);
        for (const char *path : {"ticket/", "nothing", "attachments/..%2F..%2Fetc/passwd"})
            check(404, "GET", path);
        check(405, "DELETE", "tickets");
        for (const auto &[name, value] : std::map<std::string, std::string>{
                 {"Host", "evil.example"}, {"Origin", "null"}, {"Sec-Fetch-Site", "cross-site"}})
            check(403, "GET", "tickets", {}, {{name, value}});
        check(200, "GET", "tickets", {}, {{"Host", "192.0.2.1:80"}});
    }

    void slowClientsBlockNobody()
    {
        std::array<QTcpSocket, 400> slow;
        for (QTcpSocket &socket : slow) {
            socket.connectToHost(u"127.0.0.1"_s, quint16(m_backend.port()));
            QVERIFY(socket.waitForConnected(timeout) && socket.write("GET / HTTP/1.1\r\nA: ") > 0);
            socket.flush();
        }
        const QDeadlineTimer soon(5'000);
        QCOMPARE(Customer(m_backend.port()).get("/api/tickets").status, 200);
        QVERIFY(!soon.hasExpired());
    }

    void newTicketIsComplete()
    {
        Customer customer(m_backend.port());
        QJsonObject ticket = json(customer.get(customer.open())).object();
        QJsonObject message = ticket.take("messages"_L1)[0].toObject();
        QCOMPARE(message["ticketId"_L1], ticket.take("id"_L1));
        QCOMPARE(ticket.take("schedules"_L1)[0]["days"_L1].toArray().size(), 5);
        QCOMPARE(ticket, (QJsonObject{{"state"_L1, "open"_L1}, {"assignee"_L1, "ai agent"_L1}}));
        const QJsonValue sender = message["sender"_L1];
        QCOMPARE(sender, (QJsonObject{{"id"_L1, "ada"_L1}, {"type"_L1, "customer"_L1}}));
        const QString at = message["timestamp"_L1].toString();
        QVERIFY(QDateTime::fromString(at, u"yyyy-MM-dd'T'HH:mm:ss'+0000'"_s).isValid());
    }

    void attachments()
    {
        const std::vector<std::pair<QString, QString>> names = {
            {u"../../etc/passwd"_s, u"passwd"_s},
            {u"C:\\Users\\ada\\x.txt"_s, u"x.txt"_s},
            {u".."_s, u"attachment"_s},
            {u"...rc"_s, u"rc"_s},
            {u"a\"b; c.png"_s, u"a\"b; c.png"_s},
            {u"a\tb\u0001c\u202Ed"_s, u"abcd"_s},
            {u"\u00FC \U0001F600?b#c%2F.png"_s, u"\u00FC \U0001F600?b#c%2F.png"_s},
            {QString(300, u'n') + u".jpeg"_s, QString(115, u'n') + u".jpeg"_s},
        };
        const std::string bytes("\x89PNG\r\n\x00\r\n--edg\xFF", 15);
        std::vector<FormPart> parts = {{"message", ""}};
        for (const auto &[sent, served] : names)
            parts.push_back({"attachments[]", bytes, sent.toStdString()});
        Customer customer(m_backend.port());
        const auto created = customer.send("POST", "/api/ticket/create", multipart(parts));
        const QJsonArray urls = json(created)["messages"_L1][0]["attachments"_L1].toArray();
        QCOMPARE(urls.size(), qsizetype(names.size()));
        std::string path;
        for (std::size_t i = 0; i < names.size(); ++i) {
            const QUrl url(urls[qsizetype(i)].toString(), QUrl::StrictMode);
            QCOMPARE(url.port(), m_backend.port());
            QCOMPARE(url.path(QUrl::FullyDecoded).section(u'/', 4), names[i].second);
            path = url.path(QUrl::FullyEncoded).toStdString();
            QCOMPARE(customer.get(path).body, bytes);
        }
        const Headers nobody = {{"Authorization", ""}, {"X-Tolvane-Customer", ""}};
        const httplib::Response file = customer.send("GET", path, {}, nobody);
        QCOMPARE(file.get_header_value("Content-Type"), std::string("image/png"));
        QCOMPARE(file.get_header_value("X-Content-Type-Options"), std::string("nosniff"));
        const std::string known = "W/\"x\", " + file.get_header_value("ETag");
        QCOMPARE(customer.send("GET", path, {}, {{"If-None-Match", known}}).status, 304);
        QCOMPARE(customer.send("GET", path, {}, {{"If-None-Match", "\"x\""}}).status, 200);
        QCOMPARE(customer.get(path + "x").status, 404);
    }

    // The server reads a rejected body to its end, so that it can parse the next request.
    void connectionOutlivesBadRequests()
    {
        Customer customer(m_backend.port());
        const std::string path = customer.open();
        const auto socket = customer.client.socket();
        QCOMPARE(customer.write(path, std::string(3 << 20, 'x')).status, 413);
        QCOMPARE(customer.send("POST", path, "--edge\r\nGET / HTTP/1.1\r\n\r\n").status, 400);
        QCOMPARE(customer.write("/nothing", "x").status, 404);
        QCOMPARE(customer.send("POST", path, "x", {{"Content-Encoding", "gzip"}}).status, 415);
        QCOMPARE(customer.write(path, "x").status, 200);
        QCOMPARE(customer.client.socket(), socket);
    }

    void textsAndOrderSurviveARestart()
    {
        const QTemporaryDir folder;
        const std::string database = folder.filePath(u"backend.sqlite"_s).toStdString();
        std::optional<RunningBackend> backend(std::in_place, database);
        Customer customer(backend->port());
        const std::string path = customer.open();
        customer.open();
        QJsonArray tickets;
        for (const std::string &text :
             {"\u200D\U0001F469 \u05E9' OR 1=1; --"s, "\"a\0\x01\r\n\r\n--edg"s}) {
            const QJsonObject message = json(customer.write(path, text)).object();
            QCOMPARE(message["content"_L1].toString().toStdString(), text);
            tickets = customer.tickets();
            QCOMPARE(tickets[0]["lastMessage"_L1].toObject(), message);
        }
        backend.emplace(database);
        QCOMPARE(Customer(backend->port()).tickets(), tickets);
    }

    void concurrentWritesAreKept()
    {
        Customer reader(m_backend.port());
        const std::string path = reader.open();
        std::vector<std::future<void>> running;
        for (char writer = 'a'; writer < 'i'; ++writer) {
            running.push_back(std::async(std::launch::async, [this, &path, writer] {
                Customer customer(m_backend.port());
                for (int i = 0; i < 25; ++i)
                    customer.write(path, writer + std::to_string(i));
            }));
        }
        running.clear();
        std::map<QChar, int> next;
        const QJsonArray messages = json(reader.get(path))["messages"_L1].toArray();
        for (qsizetype i = 1; i < messages.size(); ++i) {
            const QString text = messages[i]["content"_L1].toString();
            QCOMPARE(text.mid(1).toInt(), next[text[0]]++);
        }
        QCOMPARE(messages.size(), 1 + 8 * 25);
    }

    void replyRules()
    {
        const auto check = [](const char *text, Effect effect, const char *part,
                              Author assignee = Author::Ai, int attachments = 0) {
            Turn turn{assignee, text, attachments, false, "Mon 09:00-18:00"};
            const Answer answer = answerTo(turn);
            QVERIFY2(answer.effect == effect && answer.text.find(part) != std::string::npos, text);
            // A conversation in which the customer has written again is not closed.
            turn.hasNewerMessage = true;
            QVERIFY2(answerTo(turn).effect != Effect::Close, text);
        };
        check("hi, i want my money back", Effect::None, "Hello! You can return");
        check("When are you open?", Effect::None, "**Mon 09:00-18:00**");
        check("\U0001F600", Effect::None, "Write **human**");
        check("my PASSWORD", Effect::None, "I have your 3 attachments. Choose", Author::Ai, 3);
        check("real-person, please", Effect::HandOver, "handing you over");
        check("inhumane agents' agency", Effect::None, "I can tell you");
        check("are you human?", Effect::None, "a person already", Author::Human);
        check("Tsch\u00FCss", Effect::Close, "closing");
        check("it is not solved", Effect::None, "I can tell you");
        check("Thanks! And how do I get a refund?", Effect::None, "30 days");
    }

    // All messages are stored before a scheduler starts, so that no reply comes between them. Then
    // two backends on one file compete for the replies.
    void pendingRepliesAreSentOnceAndInOrderAfterARestart()
    {
        const QTemporaryDir folder;
        const std::string path = folder.filePath(u"backend.sqlite"_s).toStdString();
        std::string id;
        {
            Store store(openDatabase(path));
            id = store.createTicket("ada", {{}, {}, {"thanks", {}}}, 0).id;
            for (const char *text : {"where is my parcel", "a human please", "still there"})
                QVERIFY(store.addMessage("ada", id, {text, {}}, 0));
        }
        for (int start = 0; start < 2; ++start) {
            Store store(openDatabase(path));
            Store other(openDatabase(path));
            const LiveSettings settings(store, {}, {});
            const ReplyScheduler scheduler(store, settings, 0ms);
            const ReplyScheduler otherScheduler(other, settings, 0ms);
            const auto messages = [&] { return store.readTicket("ada", id)->messages; };
            TRY_COMPARE(messages().size(), std::size_t(9));
            QVERIFY(!store.sendDueReply([](const PendingReply &) { return ReplyOutcome{}; }));
            QVERIFY(messages()[5].content.find("2 to 4 working days") != std::string::npos);
            QVERIFY(messages()[6].content.find("handing you over") != std::string::npos);
            QCOMPARE(messages()[8].content, introduction());
            QVERIFY(store.readTicket("ada", id)->state == State::Open);
        }
    }

private:
    const RunningBackend m_backend{inMemory, 1h, {"first%41", "second"}};
    int m_customers = 0;
};

QTEST_GUILESS_MAIN(LocalBackend)
#include "tst_localbackend.moc"
