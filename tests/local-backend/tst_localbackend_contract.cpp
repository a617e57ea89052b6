// SPDX-License-Identifier: MIT
// The routes as a client meets them.
#include "runningbackend.h"
#include "text.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <future>

using namespace Qt::StringLiterals;

class LocalBackendContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void requests_data();
    void requests();
    void customerIds();
    void newTicketIsComplete();
    void attachments_data();
    void attachments();
    void connectionOutlivesBadRequests();
    void textsAndOrderOutlastARestart();
    void manyWritersLoseNothing();
    void idleConnectionsStarveNobody();

private:
    const RunningBackend m_backend{
        tolvane::backend::inMemory, std::chrono::hours(1), {"first%41", "second"}};
};

void LocalBackendContract::requests_data()
{
    QTest::addColumn<std::string>("method");
    QTest::addColumn<std::string>("path");
    QTest::addColumn<std::string>("body");
    QTest::addColumn<Headers>("headers");
    QTest::addColumn<int>("status");
    const auto row = [](const char *name, int status, const char *method, const std::string &path,
                        const std::string &body = {}, const Headers &headers = {}) {
        QTest::newRow(name) << std::string(method) << "/api/" + path << body << headers << status;
    };
    row("settings", 200, "GET", "settings");
    row("updatedAt without value", 200, "GET", "settings?updatedAt");
    row("stale", 200, "GET", "settings?updatedAt=2025-01-15T09:30:00%2B0000");
    row("equal", 304, "GET", "settings?updatedAt=2026-01-15T09%3A30%3A00%2B0000");
    row("equal, bare plus", 304, "GET", "settings?x&updatedAt=2026-01-15T09:30:00+0000");

    const auto key = [&](const char *authorization, int status) {
        row(authorization, status, "GET", "tickets", {}, {{"Authorization", authorization}});
    };
    key("Bearer first%41", 200);
    key("bearer second", 200);
    key("", 401);
    key("Bearer third", 401);
    key("Bearer firstA", 401);
    key("Bearer firs", 401);
    key("Bearer ", 401);
    key("Basic second", 401);
    const auto id = [&](const char *name, const std::string &sent) {
        row(name, 400, "GET", "tickets", {}, {{"X-Tolvane-Customer", sent}});
    };
    id("long id", std::string(129, 'a'));
    id("id with space", "a b");
    id("id not ASCII", "\xC3\xBC");

    const auto post = [&](const char *name, int status, const std::string &body,
                          const std::string &path = "ticket/create", const Headers &headers = {}) {
        row(name, status, "POST", path, body, headers);
    };
    post("customer", 204, R"({"email":null,"originalId":"7"})", "customer/update");
    post("email of another type", 400, R"({"email":1})", "customer/update");
    post("no JSON", 400, "{", "customer/update");
    post("no object", 400, "[]", "customer/update");
    post("JSON not UTF-8", 400, "{\"email\":\"\xFF\"}", "customer/update");
    post("JSON too deep", 400, std::string(100'000, '['), "customer/update");
    post("device", 204, R"({"deviceToken":"00ff"})", "customer/device/update");
    post("no token", 400, R"({"originalId":"7"})", "customer/device/update");

    const std::string field = "--edge\r\nContent-Disposition: form-data; name=message\r\n\r\n";
    const std::string end = "\r\n--edge--";
    post("epilogue", 200, field + "x" + end + "\r\nmore");
    post("quoted boundary", 200, field + "x" + end, "ticket/create",
         {{"Content-Type", "Multipart/Form-Data; charset=x; Boundary=\"edge\""}});
    post("no boundary", 400, field + "x" + end, "ticket/create",
         {{"Content-Type", "multipart/form-data"}});
    post("no type", 400, field + "x" + end, "ticket/create", {{"Content-Type", ""}});
    post("no body", 400, "");
    post("cut short", 400, field + "x\r\n--");
    post("another boundary", 400, "--c\r\n\r\n\r\n--c--");
    post("head without end", 400, "--edge\r\nContent-Disposition: x" + end);
    post("endless head", 400, "--edge\r\nA:" + std::string(500'000, ' ') + "\r\n\r\nx" + end);
    post("part without a name", 400, "--edge\r\n\r\nx" + end);
    post("mark left open", 400, "--edge\r\nContent-Disposition: x; name=\"a\r\n\r\nx" + end);
    post("line without colon", 400, "--edge\r\nnonsense\r\n\r\nx" + end);
    post("no message", 400, multipart({{"channel", "sdk"}}));
    post("empty message", 400, multipart({{"message", ""}}));
    post("message twice", 400, multipart({{"message", "a"}, {"message", "b"}}));
    post("message not UTF-8", 400, multipart({{"message", "\xC3"}}));
    post("name not UTF-8", 400, multipart({{"message", "x"}, {"attachments[]", "x", "\xFF"}}));
    post("too large", 413, multipart({{"message", std::string(2 << 20, 'x')}}));

    post("unknown ticket", 404, field + "x" + end, "ticket/none");
    post("strange ticket", 404, field + "x" + end, "ticket/%00%2F..%2F%27--");
    row("no ticket", 404, "GET", "ticket/");
    row("unknown address", 404, "GET", "nothing");
    row("climbing", 404, "GET", "attachments/..%2F..%2Fetc/passwd");
    row("climbing higher", 404, "GET", "../../etc/passwd");
    row("wrong method", 405, "DELETE", "tickets");
    row("long address", 414, "GET", std::string(9000, 'a'));
}

void LocalBackendContract::requests()
{
    QFETCH(std::string, method);
    QFETCH(std::string, path);
    QFETCH(std::string, body);
    QFETCH(Headers, headers);
    QFETCH(int, status);
    Customer customer(m_backend.port(), "row-" + std::to_string(qHash(QTest::currentDataTag())));
    const httplib::Response response = customer.send(method, path, body, headers);
    QCOMPARE(response.status, status);
    QCOMPARE(response.body.empty(), status == 204 || status == 304);
    QCOMPARE(json(response)["error"_L1].toString().isEmpty(), status < 400);
    QCOMPARE(customer.tickets().size(), status == 200 && method == "POST" ? 1 : 0);
}

void LocalBackendContract::customerIds()
{
    for (const std::string &id : {std::string("ada%2540x"), std::string(128, '~')}) {
        // The client at hand decodes percent signs in what it receives.
        QCOMPARE(Customer(m_backend.port(), id)
                     .get("/api/tickets")
                     .get_header_value("X-Tolvane-Customer"),
                 tolvane::backend::percentDecoded(id));
    }
    Customer stranger(m_backend.port(), {});
    const auto assigned = [&] {
        return stranger.get("/api/tickets").get_header_value("X-Tolvane-Customer");
    };
    const std::string id = assigned();
    QCOMPARE(id.size(), std::size_t(26));
    QVERIFY(assigned() != id);

    Customer owner(m_backend.port(), id);
    const std::string path = owner.open();
    Customer other(m_backend.port(), "other");
    QCOMPARE(other.get(path).status, 404);
    QCOMPARE(other.write(path, "mine now").status, 404);
    QCOMPARE(other.tickets().size(), 0);
    QCOMPARE(json(owner.get(path))["messages"_L1].toArray().size(), 1);
}

void LocalBackendContract::newTicketIsComplete()
{
    Customer customer(m_backend.port());
    const QJsonDocument ticket = json(customer.get(customer.open()));
    QCOMPARE(ticket["state"_L1], QJsonValue("open"_L1));
    QCOMPARE(ticket["assignee"_L1], QJsonValue("ai agent"_L1));
    QCOMPARE(ticket["schedules"_L1][0]["startTime"_L1], QJsonValue("2026-01-05T09:00:00Z"_L1));
    QCOMPARE(ticket["schedules"_L1][0]["days"_L1].toArray().size(), 5);
    const QJsonValue message = ticket["messages"_L1][0];
    QCOMPARE(message["ticketId"_L1], ticket["id"_L1]);
    QCOMPARE(message["isRead"_L1], QJsonValue(true));
    QCOMPARE(message["sender"_L1].toObject(),
             (QJsonObject{{"id"_L1, "ada"_L1}, {"type"_L1, "customer"_L1}}));
    const QDateTime sent = QDateTime::fromString(
        message["timestamp"_L1].toString().replace("+0000"_L1, "Z"_L1), Qt::ISODate);
    QVERIFY(qAbs(sent.secsTo(QDateTime::currentDateTimeUtc())) < 600);
}

void LocalBackendContract::attachments_data()
{
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("served");
    const auto row = [](const QString &sent, const QString &served) {
        QTest::newRow(qPrintable(sent.left(20))) << sent << served;
    };
    row(u"photo 1.png"_s, u"photo 1.png"_s);
    row(u"../../etc/passwd"_s, u"passwd"_s);
    row(u"C:\\Users\\ada\\x.txt"_s, u"x.txt"_s);
    row(u".."_s, u"attachment"_s);
    row(u"a/"_s, u"attachment"_s);
    row(u"...rc"_s, u"rc"_s);
    row(u"a\"b; c.png"_s, u"a\"b; c.png"_s);
    row(u"a\\\"b.png"_s, u"a\"b.png"_s);
    row(u"a\tb\u0001c\u202Ed"_s, u"abcd"_s);
    row(u"\u00FC \U0001F600?b#c%2F.png"_s, u"\u00FC \U0001F600?b#c%2F.png"_s);
    row(QString(300, u'n') + u".jpeg"_s, QString(115, u'n') + u".jpeg"_s);
}

void LocalBackendContract::attachments()
{
    QFETCH(QString, sent);
    QFETCH(QString, served);
    Customer customer(m_backend.port());
    const std::string bytes("\x89PNG\r\n\x00\r\n--edg\xFF", 15);
    const std::string body = multipart({{"message", ""},
                                        {"attachments[]", bytes, sent.toStdString()},
                                        {"attachments[]", "", "empty.png"}});
    const QJsonDocument ticket = json(customer.send("POST", "/api/ticket/create", body));
    const QJsonArray urls = ticket["messages"_L1][0]["attachments"_L1].toArray();
    QCOMPARE(urls.size(), 2);

    const QUrl url(urls[0].toString(), QUrl::StrictMode);
    QCOMPARE(url.port(), m_backend.port());
    QCOMPARE(url.path(QUrl::FullyDecoded).section(u'/', 4), served);
    const std::string path = url.path(QUrl::FullyEncoded).toStdString();
    const Headers nobody = {{"Authorization", ""}, {"X-Tolvane-Customer", ""}};
    const httplib::Response file = customer.send("GET", path, {}, nobody);
    QCOMPARE(file.status, 200);
    QCOMPARE(file.body, bytes);
    QCOMPARE(file.get_header_value("Content-Type"), std::string("image/png"));
    QCOMPARE(file.get_header_value("X-Content-Type-Options"), std::string("nosniff"));
    const std::string known = "W/\"x\", " + file.get_header_value("ETag");
    QCOMPARE(customer.send("GET", path, {}, {{"If-None-Match", known}}).status, 304);
    QCOMPARE(customer.send("GET", path, {}, {{"If-None-Match", "\"x\""}}).status, 200);
    QCOMPARE(customer.get(path + "x").status, 404);
    const httplib::Response empty = customer.get(QUrl(urls[1].toString()).path().toStdString());
    QVERIFY(empty.status == 200 && empty.body.empty());
}

// A body that was turned down is read to its end all the same, so that what follows on the
// connection is understood.
void LocalBackendContract::connectionOutlivesBadRequests()
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

void LocalBackendContract::textsAndOrderOutlastARestart()
{
    const QTemporaryDir folder;
    const std::string database = folder.filePath(u"backend.sqlite"_s).toStdString();
    const std::vector<std::string> texts = {
        "\U0001F468\u200D\U0001F469 \u05E9\u05DC", std::string("a\0b\x01\x7F", 5),
        "\"a\\\r\n\r\n--edg' OR 1=1; --", std::string(900'000, 'x'), "hello"};
    std::string path;
    QJsonArray tickets;
    {
        const RunningBackend backend(database);
        Customer customer(backend.port());
        path = customer.open();
        const std::string newer = customer.open();
        QVERIFY(newer.ends_with(customer.tickets()[0]["id"_L1].toString().toStdString()));
        for (const std::string &text : texts)
            QCOMPARE(json(customer.write(path, text))["content"_L1].toString().toStdString(), text);
        tickets = customer.tickets();
        QVERIFY(path.ends_with(tickets[0]["id"_L1].toString().toStdString()));
    }
    const RunningBackend backend(database);
    Customer customer(backend.port());
    QCOMPARE(customer.tickets(), tickets);
    const QJsonDocument ticket = json(customer.get(path));
    for (std::size_t i = 0; i < texts.size(); ++i)
        QCOMPARE(ticket["messages"_L1][static_cast<qsizetype>(i + 1)]["content"_L1]
                     .toString()
                     .toStdString(),
                 texts[i]);
}

void LocalBackendContract::manyWritersLoseNothing()
{
    constexpr int writers = 8;
    constexpr int messagesEach = 25;
    Customer reader(m_backend.port());
    const std::string path = reader.open();
    std::vector<std::future<int>> running;
    for (int writer = 0; writer < writers; ++writer) {
        running.push_back(std::async(std::launch::async, [this, &path, writer] {
            Customer customer(m_backend.port());
            int accepted = 0;
            for (int i = 0; i < messagesEach; ++i) {
                const std::string text = std::to_string(writer) + ' ' + std::to_string(i);
                accepted += customer.write(path, text).status == 200 ? 1 : 0;
            }
            return accepted;
        }));
    }
    for (auto &accepted : running)
        QCOMPARE(accepted.get(), messagesEach);

    // Each writer's come in the order in which they were written.
    std::vector<int> next(writers, 0);
    const QJsonArray messages = json(reader.get(path))["messages"_L1].toArray();
    for (qsizetype i = 1; i < messages.size(); ++i) {
        const QStringList words = messages[i]["content"_L1].toString().split(u' ');
        QCOMPARE(words[1].toInt(), next.at(words[0].toUInt())++);
    }
    QCOMPARE(next, std::vector<int>(writers, messagesEach));
}

void LocalBackendContract::idleConnectionsStarveNobody()
{
    std::vector<std::unique_ptr<Customer>> idle;
    for (int i = 0; i < 140; ++i) {
        idle.push_back(std::make_unique<Customer>(m_backend.port()));
        // Less than after what an idle connection ends by itself.
        idle.back()->client.set_read_timeout(std::chrono::seconds(8));
        QCOMPARE(idle.back()->get("/api/nothing").status, 404);
    }
}

QTEST_APPLESS_MAIN(LocalBackendContract)
#include "tst_localbackend_contract.moc"
