// SPDX-License-Identifier: MIT
#include "base/errors.h"
#include "platform/network/addresspolicy.h"
#include "platform/network/urlsession.h"
#include "testing/scriptedserver.h"

#include <QtCore/QTimer>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

namespace {

struct UrlSessionFixture
{
    UrlSessionFixture() { respondWith(fine); }

    /// Waits for the response to a request. A UrlError becomes a response whose status is its code.
    UrlResponse fetch(const UrlRequest &request)
    {
        QFuture<UrlResponse> future = session->data(request);
        if (!QTest::qWaitFor([&] { return future.isFinished(); }, 60'000))
            qFatal("A request does not finish");
        try {
            return future.result();
        } catch (const UrlError &error) {
            return {.status = error.code(), .headers = {}, .body = {}};
        }
    }

    UrlRequest request(const QString &path = u"/"_s, const QByteArray &method = "GET",
                       const QByteArray &body = {}) const
    {
        return {.url = QUrl(server.url(path)),
                .method = method,
                .headers = {{"Authorization", "Bearer secret"}, {"Content-Type", "text/plain"}},
                .body = body};
    }

    void respondWith(const QByteArray &bytes)
    {
        server.handler = [bytes](const ServedRequest &, QTcpSocket &socket) {
            socket.write(bytes);
        };
    }

    /// Whether the session still handles requests.
    bool stillWorks()
    {
        respondWith(fine);
        return fetch(request(u"/next"_s)).body == "fine";
    }

    static inline const QByteArray fine = ScriptedServer::response(200, "fine");

    ScriptedServer server;
    std::unique_ptr<UrlSession> session = makeNetworkSession();
};

} // namespace

class UrlSessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anonymousRequestsSendNoCredentials()
    {
        UrlSessionFixture fixture;
        ScriptedServer elsewhere;
        elsewhere.handler = [](const ServedRequest &, QTcpSocket &socket) {
            socket.write(ScriptedServer::response(200, "there", {"Set-Cookie: id=1"}));
        };
        fixture.server.handler = [&](const ServedRequest &request, QTcpSocket &socket) {
            const QByteArray target = elsewhere.url(u"/b"_s).toLatin1().replace("//", "//u:p@");
            socket.write(request.target == "/a"
                             ? ScriptedServer::response(302, "", {"Location: " + target})
                             : ScriptedServer::response(
                                   401, "", {"WWW-Authenticate: Basic", "Set-Cookie: id=1"}));
        };
        UrlRequest request;
        request.isAnonymous = true;
        for (const QString &path : {u"/a"_s, u"/c"_s, u"/c"_s}) {
            request.url = QUrl(fixture.server.url(path).replace(u"//"_s, u"//me:pw@"_s));
            QCOMPARE(fixture.fetch(request).status, path == u"/a"_s ? 200 : 401);
        }
        QCOMPARE(elsewhere.requests.size(), 1);
        for (const ServedRequest &served : fixture.server.requests + elsewhere.requests) {
            for (const char *name : {"authorization", "x-tolvane-customer", "cookie"})
                QVERIFY(served.header(name).isEmpty());
            QCOMPARE(served.header("accept-encoding"), "identity");
        }
        request.isAnonymous = false;
        request.url = QUrl(fixture.server.url(u"/a"_s));
        QCOMPARE(fixture.fetch(request).status, 302); // Other requests do not follow it.
    }

    void privateAddressesNeedABackendInTheSameNetwork()
    {
        const QStringList backends = {u"198.51.100.1"_s, u"192.168.0.1"_s, u"::1"_s};
        // Allowed with all backends, with the last two, with the last one.
        const QList<QByteArrayList> targets = {
            {"93.184.216.34", "2606:2800:220:1::1", "172.32.0.1", "11.0.0.1", "100.128.0.1"},
            {"10.1.2.3", "172.31.0.1", "192.168.1.1", "100.64.0.1", "169.254.169.254",
             "fe80::1%eth0", "fd00::1", "::ffff:10.0.0.1", "64:ff9b::a00:1", "255.255.255.255",
             "ff02::1"},
            {"127.0.0.1", "127.9.9.9", "0.0.0.0", "::1", "::", "::ffff:127.0.0.1"}};
        const auto address = [](const QString &text) { return QHostAddress(text); };
        for (int first = 0; first < 3; ++first) {
            for (const QByteArray &target : targets[first]) {
                const Addresses several = {address(u"1.1.1.1"_s), address(QLatin1String(target))};
                for (int backend = 0; backend < 3; ++backend)
                    QVERIFY2(mayReach(several, {address(backends[backend])}) == (backend >= first),
                             target);
                const bool isPublic = first == 0;
                QCOMPARE(mayReach(several, {address(backends[2]), address(backends[0])}), isPublic);
            }
        }
    }

    void picturesDoNotReachThePrivateNetwork()
    {
        UrlSessionFixture fixture;
        UrlRequest request = fixture.request();
        request.isAnonymous = true;
        request.backend = QUrl(u"http://198.51.100.1"_s);
        for (const QString &host : {u"127.0.0.1"_s, u"localhost"_s, u"127.1"_s}) {
            request.url.setHost(host);
            QCOMPARE(fixture.fetch(request).status, UrlError::cannotConnectToHost);
        }
        QCOMPARE(fixture.server.connectionCount, 0);
        request.backend = QUrl(u"http://localhost:1/api"_s);
        QCOMPARE(fixture.fetch(request).body, "fine");

        // The proxy responds for a server on another host.
        request.backend = QUrl(u"http://198.51.100.1"_s);
        request.url = QUrl(u"http://picture.example/"_s);
        const QString away = u"Location: "_s + fixture.server.url();
        fixture.respondWith(ScriptedServer::response(302, "moved", {away.toLatin1()}));
        QNetworkProxy::setApplicationProxy(
            {QNetworkProxy::HttpProxy, u"127.0.0.1"_s, fixture.server.serverPort()});
        const int status = fixture.fetch(request).status;
        QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
        QCOMPARE(status, UrlError::cannotConnectToHost);
        QCOMPARE(fixture.server.requests.size(), 2);
    }

    void anonymousRequestsDoNotBlockOthers()
    {
        UrlSessionFixture fixture;
        fixture.server.handler = [](const ServedRequest &request, QTcpSocket &socket) {
            if (request.target == "/drip") // One byte, and then nothing.
                socket.write("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nx");
            else
                socket.write(UrlSessionFixture::fine);
        };
        UrlRequest dripping;
        dripping.url = QUrl(fixture.server.url(u"/drip"_s));
        dripping.isAnonymous = true;
        for (int i = 0; i < 20; ++i)
            fixture.session->data(dripping);
        QCOMPARE(fixture.fetch(fixture.request()).body, "fine");
    }

    void bodiesAreBounded()
    {
        UrlSessionFixture fixture;
        fixture.respondWith(ScriptedServer::response(200, QByteArray(3000, 'x')));
        UrlRequest request = fixture.request();
        request.maximumBodySize = 2999;
        QCOMPARE(fixture.fetch(request).status, UrlError::dataLengthExceedsMaximum);
        request.maximumBodySize = 3000;
        const QByteArray body = fixture.fetch(request).body;
        QCOMPARE(body.size(), 3000);
        QVERIFY(body.capacity() < 6000); // The capacity of the read buffer is released.
    }

    void requestsAreNeverRepeated_data()
    {
        QTest::addColumn<QByteArray>("body");
        for (const qsizetype size : {0, 5, 300'000})
            QTest::addRow("%lld bytes", qint64(size)) << QByteArray(size, 'x');
    }

    void requestsAreNeverRepeated()
    {
        QFETCH(const QByteArray, body);
        for (const char *way : {"reset", "closed", "reset half-way", "reset, kept alive",
                                "closed, kept alive", "reset half-way, kept alive"}) {
            const QByteArrayView view(way);
            UrlSessionFixture fixture;
            QVERIFY(!view.endsWith("kept alive") || fixture.stillWorks());
            fixture.server.requests.clear();
            fixture.server.handler = [view](const ServedRequest &, QTcpSocket &socket) {
                if (view.contains("half-way"))
                    socket.write(UrlSessionFixture::fine.chopped(2));
                if (view.startsWith("closed"))
                    socket.disconnectFromHost();
                else
                    ScriptedServer::reset(socket);
            };
            const int error = fixture.fetch(fixture.request(u"/"_s, "POST", body)).status;
            QVERIFY2(error == UrlError::networkConnectionLost, way);
            // A repeated request would arrive before the next one.
            QVERIFY2(fixture.stillWorks() && fixture.server.requests.size() == 2, way);
            QCOMPARE(fixture.server.requests.constFirst().method, "POST");
            QCOMPARE(fixture.server.requests.constFirst().body, body);
        }
    }

    void anyStatusIsAResponse()
    {
        UrlSessionFixture fixture;
        for (const int status : {200, 204, 302, 304, 400, 401, 404, 407, 418, 500, 503, 599, 600}) {
            fixture.server.requests.clear();
            fixture.respondWith(ScriptedServer::response(
                status, "body",
                {"X-Tolvane-Customer: c1", "WWW-Authenticate: Basic realm=\"x\"",
                 "Proxy-Authenticate: Basic realm=\"x\"", "Retry-After: 0"}));
            const UrlResponse response = fixture.fetch(fixture.request(u"/"_s, "POST", "x"));
            QCOMPARE(response.status, status);
            QCOMPARE(response.body, status == 204 || status == 304 ? "" : "body");
            QCOMPARE(response.header("x-tolvane-CUSTOMER"), "c1");
            QVERIFY(!response.header("X-Tolvane"));
            QCOMPARE(fixture.server.requests.size(), 1);
        }
    }

    void failuresHaveTheirCodes_data()
    {
        QTest::addColumn<QString>("url"); // SERVER and CLOSED are replaced with ports.
        QTest::addColumn<QByteArray>("response");
        QTest::addColumn<int>("code");
        const auto row = [](const char *url, const char *response, int code) {
            QTest::addRow("%s %.12s", url, response)
                << QString::fromLatin1(url) << QByteArray(response) << code;
        };
        row("http://127.0.0.1:SERVER/", "HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nfine", -1005);
        row("http://127.0.0.1:SERVER/", "220 mail.example ESMTP\r\n\r\n", -1005);
        row("https://127.0.0.1:SERVER/", "no TLS here\r\n\r\n", -1200);
        row("http://127.0.0.1:CLOSED/", "", -1004);
        row("", "", -1000);
        row("http:///tickets", "", -1000);
        row("127.0.0.1/tickets", "", -1000);
        row("http://[", "", -1000);
        row("file:///etc/hostname", "", -1002);
        row("data:text/plain,x", "", -1002);
    }

    void failuresHaveTheirCodes()
    {
        QFETCH(QString, url);
        QFETCH(const QByteArray, response);
        QFETCH(const int, code);
        UrlSessionFixture fixture;
        QTcpServer server; // Sends plain bytes to any client, also to TLS clients.
        QVERIFY(server.listen(QHostAddress::LocalHost));
        connect(&server, &QTcpServer::newConnection, &server, [&] {
            QTcpSocket *socket = server.nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [socket, response] {
                QVERIFY(!socket->readAll().contains("\x02h2")); // TLS offers no HTTP/2.
                socket->write(response);
                if (response.startsWith("HTTP"))
                    socket->disconnectFromHost();
            });
        });
        url.replace(u"SERVER"_s, QString::number(server.serverPort()));
        url.replace(u"CLOSED"_s, QString::number(fixture.server.serverPort()));
        fixture.server.close();
        UrlRequest request;
        request.url = QUrl(url);
        QCOMPARE(fixture.fetch(request).status, code);
    }

    void rejectsHeadersWithLineEnds()
    {
        UrlSessionFixture fixture;
        for (const QByteArray &value :
             {QByteArray("a\r\nX: y"), QByteArray("a\nX: y"), QByteArray("a\0b", 3)}) {
            UrlRequest request = fixture.request();
            request.headers.emplaceBack("X-Tolvane-Customer", value);
            QCOMPARE(fixture.fetch(request).status, UrlError::badURL);
        }
        QVERIFY(fixture.server.requests.isEmpty());
    }

    void timesOutOnlyWhenIdle()
    {
        for (const bool drips : {false, true}) {
            UrlSessionFixture fixture;
            QTimer timer;
            qsizetype written = UrlSessionFixture::fine.size() - 4;
            fixture.server.handler = [&](const ServedRequest &, QTcpSocket &socket) {
                socket.write(UrlSessionFixture::fine.first(written));
                connect(&timer, &QTimer::timeout, &socket,
                        [&] { socket.write(UrlSessionFixture::fine.mid(written++, 1)); });
            };
            UrlRequest request = fixture.request();
            request.timeout = 1000ms;
            if (drips)
                timer.start(300ms);
            const UrlResponse response = fixture.fetch(request);
            QCOMPARE(response.status, drips ? 200 : UrlError::timedOut);
            QCOMPARE(response.body, drips ? "fine" : "");
            QVERIFY(fixture.stillWorks());
        }
    }

    void followsRedirectsOnTheSameOrigin()
    {
        for (const QByteArray &method : {QByteArray("GET"), QByteArray("POST")}) {
            for (const int status : {301, 302, 303, 307, 308}) {
                UrlSessionFixture fixture;
                const QByteArray moved =
                    ScriptedServer::response(status, "moved", {"Location: ../c?d=%2B"});
                fixture.server.handler = [&](const ServedRequest &request, QTcpSocket &socket) {
                    socket.write(request.target == "/a/b?q" ? moved : UrlSessionFixture::fine);
                };
                const UrlRequest request = fixture.request(u"/a/b?q"_s, method, "hello");
                const bool isSentAgain = method == "GET" || status < 307;
                QCOMPARE(fixture.fetch(request).body, isSentAgain ? "fine" : "moved");
                QCOMPARE(fixture.server.requests.size(), isSentAgain ? 2 : 1);
                if (!isSentAgain)
                    continue;
                const ServedRequest &second = fixture.server.requests.constLast();
                const bool isTheSame = method == "GET";
                QCOMPARE(second.target, "/c?d=%2B");
                QCOMPARE(second.method, isTheSame ? method : "GET");
                QCOMPARE(second.body, isTheSame ? "hello" : "");
                QCOMPARE(second.header("content-type"), isTheSame ? "text/plain" : "");
                QCOMPARE(second.header("authorization"), "Bearer secret");
            }
        }
    }

    void rejectsCrossOriginAndEndlessRedirects()
    {
        UrlSessionFixture fixture;
        UrlSessionFixture other;
        const QString here = QString::number(fixture.server.serverPort());
        const QString there = QString::number(other.server.serverPort());
        for (const QString &location :
             {u"http://127.0.0.1:"_s + there, u"//127.0.0.1:"_s + there,
              u"http://localhost:"_s + here, u"https://127.0.0.1:"_s + here,
              u"http://127.0.0.1:"_s + here + u"@localhost:"_s + there, u"file:///etc/hostname"_s,
              u"http://["_s, QString()}) {
            fixture.respondWith(
                ScriptedServer::response(307, "moved", {"Location: " + location.toUtf8()}));
            QCOMPARE(fixture.fetch(fixture.request()).status, 307);
        }
        QCOMPARE(fixture.server.requests.size(), 8);
        QCOMPARE(other.server.connectionCount, 0);
        fixture.respondWith(ScriptedServer::response(302, "again", {"Location: /"}));
        QCOMPARE(fixture.fetch(fixture.request()).status, 302);
        QCOMPARE(fixture.server.requests.size(), 8 + 17);
    }

    void compressedResponses()
    {
        UrlSessionFixture fixture;
        for (const int mebibytes : {0, 1, 40, 101}) {
            const QByteArray body(mebibytes << 20, 'x');
            // qCompress() puts four bytes before the compressed stream.
            fixture.respondWith(ScriptedServer::response(200, qCompress(body).sliced(4),
                                                         {"Content-Encoding: deflate"}));
            const UrlResponse response = fixture.fetch(fixture.request());
            const bool isTooLarge = mebibytes > 100;
            // Qt reports too large bodies as bodies that cannot be decompressed.
            QCOMPARE(response.status, isTooLarge ? UrlError::badServerResponse : 200);
            QVERIFY(isTooLarge || response.body == body);
        }
        QVERIFY(fixture.stillWorks());
    }
};

QTEST_GUILESS_MAIN(UrlSessionTest)
#include "tst_urlsession.moc"
