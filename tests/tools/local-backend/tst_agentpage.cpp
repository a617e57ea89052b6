// SPDX-License-Identifier: MIT
// The agents' page: its access checks, its files, and the requests that it rejects.
#include "agentclient.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::literals;
using namespace tolvane::backend;

class AgentPageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyThePageHasAccess()
    {
        const RunningBackend backend(inMemory, 1h, {"key"});
        Agent agent(backend);
        const std::string own = "127.0.0.1:" + std::to_string(backend.port());
        const auto check = [&](int status, const std::string &method, const Headers &headers) {
            const auto response = agent.send(method, "/agent/api/settings", {}, headers);
            const std::string header = headers.begin()->first + ": " + headers.begin()->second;
            QVERIFY2(response.status == status, header.c_str());
            QVERIFY2(json(response)["error"_L1].isString() == (status >= 400), header.c_str());
        };
        for (const std::string &host : {own, "localhost:1"s, "LOCALHOST"s, "[::1]"s, "[::1]:80"s})
            check(200, "GET", {{"Host", host}});
        for (const char *host : {"evil.example", "127.0.0.1.evil.example:80", "localhost.:80",
                                 "192.168.0.1", "[::1].evil.example"})
            check(403, "GET", {{"Host", host}});
        check(200, "GET", {{"Origin", "http://" + own}});
        for (const char *origin : {"null", "http://evil.example", "http://127.0.0.1:1"})
            check(403, "GET", {{"Origin", origin}});
        check(403, "GET", {{"Sec-Fetch-Site", "cross-site"}});
        check(403, "GET", {{"Sec-Fetch-Site", "same-site"}});
        check(200, "GET", {{"X-Tolvane-Agent", ""}});
        check(403, "POST", {{"X-Tolvane-Agent", ""}});
        check(405, "POST", {{"Origin", "http://" + own}});
    }

    void pageIsCompleteAndHasAPolicy()
    {
        const RunningBackend backend;
        Agent agent(backend);
        QCOMPARE(agent.get("/").get_header_value("Location"), std::string("/agent"));
        const auto page = agent.get("/agent");
        const std::string policy = page.get_header_value("Content-Security-Policy");
        QVERIFY(policy.starts_with("default-src 'none'") &&
                policy.find("unsafe") == std::string::npos);
        // All files that the page and its scripts refer to exist.
        std::vector<std::string> pending = {"/agent"};
        QSet<QString> seen;
        static const QRegularExpression named(
            u"(?:href=\"|src=\"|from ')(/agent/|\\./)([a-z]+\\.(?:js|css))[\"']"_s);
        while (!pending.empty()) {
            const auto file = agent.get(pending.back());
            QVERIFY2(file.status == 200 && !file.body.empty(), pending.back().c_str());
            pending.pop_back();
            auto matches = named.globalMatch(QString::fromStdString(file.body));
            while (matches.hasNext()) {
                const QString name = matches.next().captured(2);
                if (!seen.contains(name))
                    pending.push_back("/agent/" + name.toStdString());
                seen.insert(name);
            }
        }
        QVERIFY(seen.size() >= 10);
        QCOMPARE(agent.get("/agent/nothing.js").status, 404);
        QCOMPARE(agent.send("POST", "/agent", "x").status, 405);
        QCOMPARE(agent.send("GET", "/agent", {}, {{"Host", "evil.example"}}).status, 403);
    }

    void badRequests()
    {
        RunningBackend backend;
        Agent agent(backend);
        const std::string ticket = "ticket/" + idIn(Customer(backend.port()).open());
        const std::string message = ticket + "/message";
        const std::string big(70 << 10, 'x');
        const auto form = [](const std::vector<FormPart> &parts) { return multipart(parts); };
        const std::vector<std::tuple<int, std::string, std::string>> cases = {
            {404, "ticket/none", "{}"},
            {404, "ticket/none/push", "{}"},
            {404, "ticket/none/message", form({{"as", "ai agent"}, {"message", "x"}})},
            {400, ticket, R"({"state":"asleep"})"},
            {400, ticket, R"({"assignee":"customer"})"},
            {400, ticket, R"({"automatic":"yes"})"},
            {400, ticket, "["},
            {413, ticket, "{\"state\":\"" + big + "\"}"},
            {400, message, form({{"message", "x"}})},
            {400, message, form({{"as", "customer"}, {"message", "x"}})},
            {400, message, form({{"as", "human agent"}, {"message", ""}})},
            {400, message, form({{"as", "human agent"}, {"message", "x"}, {"name", big}})},
            {400, message, form({{"as", "human agent"}, {"message", "x"}, {"picture", "a/b"}})},
            {400, message, form({{"as", "human agent"}, {"message", "x"}, {"picture", "a"}})},
            {400, "pictures", form({{"message", "x"}})},
            {400, "pictures", form({{"attachments[]", "", "x.png"}})},
            {413, "pictures", std::string(5 << 20, 'x')},
            {409, ticket + "/push", "{}"},
            {400, ticket + "/push", "[]"},
            {400, "branding", "no JSON"},
            {400, "branding", "[]"},
            {400, "branding", "{\"primaryLight\":\"#12345\"}"},
            {400, "schedules", R"([{"id":"a","days":["Samstag"]}])"},
            {400, "automatic", "{}"},
            {404, "nothing", "{}"},
        };
        for (const auto &[status, path, body] : cases) {
            const auto response = agent.post(path, body);
            QVERIFY2(response.status == status, (path + body.substr(0, 80)).c_str());
            QVERIFY2(json(response)["error"_L1].isString(), path.c_str());
        }
        QCOMPARE(agent.read(ticket)["messages"_L1].toArray().size(), 1);
    }
};

QTEST_GUILESS_MAIN(AgentPageTest)
#include "tst_agentpage.moc"
