// SPDX-License-Identifier: MIT
// The routes for customers and for the agents' page; the program's command line and its end.
#include "runningbackend.h"
#include "testing/process.h"

#include <QtCore/QTemporaryDir>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;
using tolvane::test::Process;

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

    void checkRejected(const QString &arguments, const QByteArray &named)
    {
        Process process(m_program,
                        QString(arguments).replace("DIR"_L1, m_folder.path()).split(u' '),
                        {.channels = QProcess::SeparateChannels});
        const bool isRejected = process.waitForExit() == 2 && process.output().isEmpty();
        const QByteArray line = process.errors();
        const bool isOurs = line.startsWith("tolvane-backend: ") && line.contains(named);
        QVERIFY2(isRejected && isOurs && line.indexOf('\n') == line.size() - 1, line);
    }

private Q_SLOTS:
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
        const auto assignedFor = [this](const std::string &id) {
            const auto response = Customer(m_backend.port(), id).get("/api/tickets");
            return response.get_header_value("X-Tolvane-Customer");
        };
        // This HTTP client decodes percent escapes in headers that it receives.
        QCOMPARE(assignedFor("ada%2540x"), std::string("ada%40x"));
        QCOMPARE(assignedFor(std::string(128, '~')), std::string(128, '~'));
        const std::string assigned = assignedFor({});
        QCOMPARE(assigned.size(), std::size_t(26));
        QVERIFY(assignedFor({}) != assigned);

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
        const Headers nobody = {{"Authorization", ""}, {"X-Tolvane-Customer", ""}};
        for (std::size_t i = 0; i < names.size(); ++i) {
            const QUrl url(urls[qsizetype(i)].toString(), QUrl::StrictMode);
            QCOMPARE(url.path(QUrl::FullyDecoded).section(u'/', 4), names[i].second);
            const std::string path = url.path(QUrl::FullyEncoded).toStdString();
            const httplib::Response file = customer.send("GET", path, {}, nobody);
            QCOMPARE(file.body, bytes);
            QCOMPARE(file.get_header_value("Content-Type"), std::string("image/png"));
            QCOMPARE(file.get_header_value("X-Content-Type-Options"), std::string("nosniff"));
        }
    }

    void onlyThePageHasAccess()
    {
        Customer agent(m_backend.port());
        const std::string own = "127.0.0.1:" + std::to_string(m_backend.port());
        agent.headers = {{"X-Tolvane-Agent", "1"}, {"Host", own}};
        const auto check = [&](int status, const std::string &method, const Headers &headers) {
            const auto response = agent.send(method, "/agent/api/settings", {}, headers);
            const std::string header = headers.begin()->first + ": " + headers.begin()->second;
            QVERIFY2(response.status == status, header.c_str());
        };
        for (const std::string &host : {own, "localhost:1"s, "LOCALHOST"s, "[::1]"s, "[::1]:80"s})
            check(200, "GET", {{"Host", host}});
        for (const char *host : {"evil.example", "127.0.0.1.evil.example:80", "localhost.:80",
                                 "192.168.0.1", "[::1].evil.example"})
            check(403, "GET", {{"Host", host}});
        check(200, "GET", {{"Origin", "http://" + own}});
        for (const char *origin : {"null", "http://evil.example", "http://127.0.0.1:1"})
            check(403, "GET", {{"Origin", origin}});
        check(403, "GET", {{"Sec-Fetch-Site", "same-site"}});
        check(200, "GET", {{"X-Tolvane-Agent", ""}});
        check(403, "POST", {{"X-Tolvane-Agent", ""}});
        const auto page = agent.get("/agent");
        QVERIFY(page.get_header_value("Content-Security-Policy").starts_with("default-src 'none'"));
    }

    void badFlags()
    {
        const RunningBackend other;
        for (const char *arguments :
             {"--colour blue", "stray", "--port x", "--port 65536", "--port 80.5", "--port",
              "--reply-delay -1", "--reply-delay nan", "--max-body 0", "--key=", "--db DIR",
              "--db DIR/none/", "--branding DIR/none", "--host 192.0.2.1 --db :memory:"}) {
            const QString text = QLatin1String(arguments);
            checkRejected(text, text.section(u' ', 0, 0).remove("--"_L1).remove(u'=').toUtf8());
        }
        checkRejected(u"--db :memory: --port %1"_s.arg(other.port()), "--port");
    }

    void badFiles()
    {
        using tolvane::backend::Database;
        const std::string folder = m_folder.path().toStdString();
        const int create = SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE;
        Database(folder + "/foreign", create).exec("CREATE TABLE recipes (name)");
        Database(folder + "/newer", create)
            .exec("PRAGMA application_id = 0x544F4C56; PRAGMA user_version = 9");
        checkRejected(u"--db DIR/foreign"_s, "another program's");
        checkRejected(u"--db DIR/newer"_s, "newer");
        const auto check = [this](const char *flag, const QByteArray &content, const char *named) {
            QFile file(m_folder.filePath(u"file"_s));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
            file.close();
            checkRejected(QLatin1String(flag) + " DIR/file"_L1, named);
            QVERIFY(file.open(QIODevice::ReadOnly) && file.readAll() == content);
        };
        check("--db", "neither a database nor JSON", "not a database");
        check("--branding", R"({"primaryLight":"orange"})", "primaryLight");
        check("--schedules", R"([{"id":"a","days":["Sat"],"startTime":"22:00"}])", "startTime");
        for (const auto &[seed, named] : std::initializer_list<std::pair<QByteArray, const char *>>{
                 {"{", "is not valid JSON"},
                 {R"({"customer":"ada","colour":1})", "unknown field 'colour'"},
                 {R"({"customer":"a b"})", "visible ASCII"},
                 {R"({"customer":"ada","pictures":["none.png"]})", "'none.png' cannot be read"},
                 {R"({"customer":"ada","people":{"bo":{}}})", "at people.bo.name: needs a string"},
                 {R"({"customer":"ada","conversations":[{"state":"open","messages":[)"
                  R"({"from":"ai","text":"x"}]}]})",
                  "messages[0].minutesAgo: needs a number"}})
            check("--db :memory: --seed", seed, named);
    }

    void servesUntilSignal()
    {
        const QString database = m_folder.filePath(u"data/backend.sqlite"_s);
        Process process(m_program, {u"--port"_s, u"0"_s, u"--db"_s, database},
                        {.channels = QProcess::SeparateChannels});
        const QString line = QString::fromUtf8(process.readLine());
        QVERIFY(line.startsWith("listening on http://127.0.0.1:"_L1) && line.endsWith("/api"_L1));

        Customer customer(QUrl(line.section(u' ', 2)).port());
        QCOMPARE(customer.get(customer.open()).status, 200);
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther;
        QVERIFY(QFile::exists(database) && !(QFile::permissions(database) & others));

        // An idle connection ends by itself after ten seconds.
        const QDeadlineTimer idle(9'000);
        process.terminate();
        QCOMPARE(process.waitForExit(), 0);
        QVERIFY2(!idle.hasExpired(), "the open connection delayed the end");
        QCOMPARE(process.output() + process.errors(), QByteArray());
    }

private:
    const RunningBackend m_backend{{"first%41", "second"}};
    int m_customers = 0;
    const QString m_program = QStringLiteral(TOLVANE_BACKEND_PROGRAM);
    const QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(LocalBackend)
#include "tst_localbackend.moc"
