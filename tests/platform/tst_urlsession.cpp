// SPDX-License-Identifier: MIT
#include "platform/errors.h"
#include "platform/urlsession.h"
#include "support/scriptedserver.h"

#include <QtCore/QTimer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

#include <thread>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

/// The C library's resolver keeps a little for each thread that has looked up a name.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:__res_context_send";
}

namespace {

/// What became of a request: a response, or the code of its UrlError.
struct Outcome
{
    UrlResponse response;
    int error = 0;
};

Outcome outcomeOf(QFuture<UrlResponse> future)
{
    if (!QTest::qWaitFor([&] { return future.isFinished(); }, 60'000))
        qFatal("A request has no end");
    try {
        return {future.result()};
    } catch (const UrlError &error) {
        return {{}, error.code()};
    }
}

struct Scene
{
    Outcome fetch(const UrlRequest &request) { return outcomeOf(session->data(request)); }

    UrlRequest request(const QString &path = u"/"_s, const QByteArray &method = "GET",
                       const QByteArray &body = {}) const
    {
        UrlRequest made{
            .url = QUrl(server.url(path)), .method = method, .headers = {}, .body = body};
        made.headers.emplaceBack("Authorization", "Bearer secret");
        if (method == "POST")
            made.headers.emplaceBack("Content-Type", "text/plain");
        return made;
    }

    void answerWith(const QByteArray &bytes)
    {
        server.handler = [bytes](const ServedRequest &, QTcpSocket &socket) {
            socket.write(bytes);
        };
    }

    ScriptedServer server;
    std::unique_ptr<UrlSession> session = makeNetworkSession();
};

const QByteArray fine = ScriptedServer::response(200, "fine");

using Break = std::function<void(QTcpSocket &)>;

void writeHalf(QTcpSocket &socket)
{
    socket.write(fine.chopped(2));
    socket.flush();
}

/// Writes without end until the peer has had enough.
void pour(QTcpSocket &socket, const QByteArray &head, const QByteArray &chunk,
          const std::shared_ptr<qint64> &poured)
{
    const auto more = [&socket, chunk, poured] {
        while (socket.isOpen() && socket.bytesToWrite() < 2 * chunk.size()) {
            if (socket.write(chunk) < 0)
                return;
            *poured += chunk.size();
        }
    };
    QObject::connect(&socket, &QTcpSocket::bytesWritten, &socket, more);
    socket.write(head);
    more();
}

} // namespace

class UrlSessionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void oneRequestIsOneRequest_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("keptAlive");
        QTest::addColumn<Break>("breakOff");
        const QList<QPair<QByteArray, QByteArray>> kinds = {
            {"GET", ""}, {"POST", "hello"}, {"POST", QByteArray(300'000, 'x')}};
        const QList<QPair<const char *, Break>> breaks = {
            {"resets", ScriptedServer::reset},
            {"closes", [](QTcpSocket &socket) { socket.disconnectFromHost(); }},
            {"resets half-way",
             [](QTcpSocket &socket) { writeHalf(socket), ScriptedServer::reset(socket); }},
        };
        for (const auto &[method, body] : kinds) {
            for (const bool keptAlive : {false, true}) {
                for (const auto &[name, breakOff] : breaks) {
                    QTest::addRow("%s of %d bytes, %s, %s", method.constData(), int(body.size()),
                                  keptAlive ? "kept alive" : "fresh", name)
                        << method << body << keptAlive << breakOff;
                }
            }
        }
    }

    void oneRequestIsOneRequest()
    {
        QFETCH(const QByteArray, method);
        QFETCH(const QByteArray, body);
        QFETCH(const bool, keptAlive);
        QFETCH(const Break, breakOff);
        Scene scene;
        scene.answerWith(fine);
        if (keptAlive)
            QCOMPARE(scene.fetch(scene.request()).response.status, 200);
        scene.server.requests.clear();
        scene.server.handler = [&](const ServedRequest &, QTcpSocket &socket) { breakOff(socket); };
        QCOMPARE(scene.fetch(scene.request(u"/"_s, method, body)).error,
                 UrlError::networkConnectionLost);
        scene.answerWith(fine);
        QCOMPARE(scene.fetch(scene.request(u"/next"_s)).response.body, "fine");
        // Whatever was to be sent again would have come before the next one.
        QCOMPARE(scene.server.requests.size(), 2);
        QCOMPARE(scene.server.requests.constFirst().method, method);
        QCOMPARE(scene.server.requests.constFirst().body, body);
        QCOMPARE(scene.server.requests.constLast().target, "/next");
    }

    void anyStatusIsAResponse_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QList<QByteArray>>("headers");
        for (const int status : {200, 204, 302, 304, 400, 404, 418, 500, 503, 599, 600})
            QTest::addRow("%d", status) << status << QList<QByteArray>();
        QTest::newRow("401, challenge")
            << 401 << QList<QByteArray>{"WWW-Authenticate: Basic realm=\"x\""};
        QTest::newRow("407, challenge")
            << 407 << QList<QByteArray>{"Proxy-Authenticate: Basic realm=\"x\""};
    }

    void anyStatusIsAResponse()
    {
        QFETCH(const int, status);
        QFETCH(QList<QByteArray>, headers);
        headers += "X-Tolvane-Customer: c1";
        Scene scene;
        scene.answerWith(ScriptedServer::response(status, "body", headers));
        const UrlResponse response = scene.fetch(scene.request(u"/"_s, "POST", "x")).response;
        QCOMPARE(response.status, status);
        QCOMPARE(response.body, status == 204 || status == 304 ? "" : "body");
        QCOMPARE(response.header("x-tolvane-CUSTOMER"), "c1");
        QVERIFY(!response.header("X-Tolvane"));
        QCOMPARE(scene.server.requests.size(), 1);
    }

    void failsWithTheCodeOf_data()
    {
        QTest::addColumn<QString>("url"); // "%1" stands for the server's port.
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<int>("code");
        const QString here = u"http://127.0.0.1:%1/"_s;
        QTest::newRow("cut short")
            << here << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nfine") << -1005;
        QTest::newRow("not HTTP") << here << QByteArray("220 mail.example ESMTP\r\n\r\n") << -1005;
        QTest::newRow("TLS with a plain server")
            << u"https://127.0.0.1:%1/"_s << QByteArray("no TLS here\r\n\r\n") << -1200;
        QTest::newRow("no such host") << u"http://host.invalid/"_s << QByteArray() << -1003;
        QTest::newRow("empty") << QString() << QByteArray() << -1000;
        QTest::newRow("no host") << u"http:///tickets"_s << QByteArray() << -1000;
        QTest::newRow("file") << u"file:///etc/hostname"_s << QByteArray() << -1002;
        QTest::newRow("data") << u"data:text/plain,x"_s << QByteArray() << -1002;
    }

    void failsWithTheCodeOf()
    {
        QFETCH(const QString, url);
        QFETCH(const QByteArray, answer);
        QFETCH(const int, code);
        Scene scene;
        bool answered = false;
        // Plain bytes to whatever comes, which may be no HTTP either.
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        connect(&server, &QTcpServer::newConnection, &server, [&] {
            QTcpSocket *socket = server.nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, socket, [&answered, socket, answer] {
                answered = true;
                socket->readAll();
                socket->write(answer);
                if (answer.startsWith("HTTP"))
                    socket->disconnectFromHost();
            });
        });
        UrlRequest request;
        request.url = QUrl(url.contains("%1"_L1) ? url.arg(server.serverPort()) : url);
        QCOMPARE(scene.fetch(request).error, code);
        QCOMPARE(answered, !answer.isEmpty());
    }

    void refusesHeadersWithLineEnds()
    {
        Scene scene;
        scene.answerWith(fine);
        for (const QByteArray &value :
             {QByteArray("a\r\nX: y"), QByteArray("a\nX: y"), QByteArray("a\0b", 3)}) {
            UrlRequest request = scene.request();
            request.headers.emplaceBack("X-Tolvane-Customer", value);
            QCOMPARE(scene.fetch(request).error, UrlError::badURL);
        }
        QVERIFY(scene.server.requests.isEmpty());
    }

    void nobodyListens()
    {
        Scene scene;
        const UrlRequest request = scene.request();
        scene.server.close();
        QCOMPARE(scene.fetch(request).error, UrlError::cannotConnectToHost);
    }

    void timesOutOnlyWhenIdle_data()
    {
        QTest::addColumn<bool>("drips");
        QTest::newRow("silence") << false;
        QTest::newRow("slow, but never silent") << true;
    }

    void timesOutOnlyWhenIdle()
    {
        QFETCH(const bool, drips);
        Scene scene;
        QTimer timer;
        qsizetype written = 0;
        scene.server.handler = [&](const ServedRequest &, QTcpSocket &socket) {
            socket.write(fine.chopped(4));
            connect(&timer, &QTimer::timeout, &socket, [&written, &socket] {
                if (written < 4)
                    socket.write(fine.last(4).sliced(written++, 1));
            });
        };
        UrlRequest request = scene.request();
        request.timeout = 600ms;
        if (drips)
            timer.start(250ms);
        const Outcome outcome = scene.fetch(request);
        QCOMPARE(outcome.error, drips ? 0 : UrlError::timedOut);
        QCOMPARE(outcome.response.body, drips ? "fine" : "");
        scene.answerWith(fine);
        QCOMPARE(scene.fetch(scene.request()).response.body, "fine");
    }

    void followsOnTheSameOrigin_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("methodAfter");
        for (const int status : {301, 302, 303, 307, 308}) {
            const QByteArray after = status < 307 ? "GET" : "POST";
            QTest::addRow("GET, %d", status) << QByteArray("GET") << status << QByteArray("GET");
            QTest::addRow("POST, %d", status) << QByteArray("POST") << status << after;
        }
    }

    void followsOnTheSameOrigin()
    {
        QFETCH(const QByteArray, method);
        QFETCH(const int, status);
        QFETCH(const QByteArray, methodAfter);
        Scene scene;
        scene.server.handler = [status](const ServedRequest &request, QTcpSocket &socket) {
            socket.write(request.target == "/a/b?q"
                             ? ScriptedServer::response(status, "moved", {"Location: ../c?d=%2B"})
                             : fine);
        };
        const QByteArray body = method == "POST" ? "hello" : "";
        QCOMPARE(scene.fetch(scene.request(u"/a/b?q"_s, method, body)).response.body, "fine");
        QCOMPARE(scene.server.requests.size(), 2);
        const ServedRequest &second = scene.server.requests.constLast();
        const bool isPost = methodAfter == "POST";
        QCOMPARE(second.method, methodAfter);
        QCOMPARE(second.target, "/c?d=%2B");
        QCOMPARE(second.body, isPost ? "hello" : "");
        QCOMPARE(second.header("content-type"), isPost ? "text/plain" : "");
        QCOMPARE(second.header("authorization"), "Bearer secret");
    }

    void doesNotFollowElsewhere_data()
    {
        QTest::addColumn<QString>("location"); // "%1" stands for the other port, "%2" for this one.
        QTest::newRow("port") << u"http://127.0.0.1:%1/"_s;
        QTest::newRow("host") << u"http://localhost:%1/"_s;
        QTest::newRow("looks like this host") << u"http://127.0.0.1:%2@localhost:%1/"_s;
        QTest::newRow("scheme") << u"https://127.0.0.1:%2/"_s;
        QTest::newRow("file") << u"file:///etc/hostname"_s;
    }

    void doesNotFollowElsewhere()
    {
        QFETCH(QString, location);
        location.replace("%2"_L1, "%3"_L1);
        ScriptedServer other;
        other.handler = [](const ServedRequest &, QTcpSocket &socket) { socket.write(fine); };
        Scene scene;
        location.replace("%1"_L1, QString::number(other.serverPort()));
        location.replace("%3"_L1, QString::number(scene.server.serverPort()));
        for (const int status : {302, 307}) {
            scene.answerWith(
                ScriptedServer::response(status, "moved", {"Location: " + location.toUtf8()}));
            QCOMPARE(scene.fetch(scene.request()).response.status, status);
        }
        QCOMPARE(scene.server.requests.size(), 2);
        QCOMPARE(other.connectionCount, 0);
    }

    void aRedirectLoopEnds()
    {
        Scene scene;
        scene.answerWith(ScriptedServer::response(302, "again", {"Location: /"}));
        QCOMPARE(scene.fetch(scene.request()).response.status, 302);
        QCOMPARE(scene.server.requests.size(), 17);
    }

    void endlessAnswersAreCutOff()
    {
        Scene scene;
        const auto poured = std::make_shared<qint64>(0);
        scene.server.handler = [=](const ServedRequest &, QTcpSocket &socket) {
            pour(socket, "HTTP/1.1 200 OK\r\nContent-Length: 1099511627776\r\n\r\n",
                 QByteArray(1 << 20, 'x'), poured);
        };
        QCOMPARE(scene.fetch(scene.request()).error, UrlError::dataLengthExceedsMaximum);
        QVERIFY2(*poured < (160 << 20), qPrintable(QString::number(*poured)));
        scene.answerWith(fine);
        QCOMPARE(scene.fetch(scene.request()).response.body, "fine");
    }

    void compressedAnswers_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("error");
        QTest::newRow("small") << QByteArray(1000, 'x') << 0;
        QTest::newRow("repetitive") << QByteArray(40 << 20, 'x') << 0;
        QTest::newRow("too large") << QByteArray(101 << 20, 'x') << -1103;
    }

    void compressedAnswers()
    {
        QFETCH(const QByteArray, body);
        QFETCH(const int, error);
        Scene scene;
        // The stream that qCompress() makes follows four bytes of its own.
        scene.answerWith(ScriptedServer::response(200, qCompress(body).sliced(4),
                                                  {"Content-Encoding: deflate"}));
        const Outcome outcome = scene.fetch(scene.request());
        QCOMPARE(outcome.error, error);
        QVERIFY(outcome.response.body == (error ? QByteArray() : body));
        scene.answerWith(fine);
        QCOMPARE(scene.fetch(scene.request()).response.body, "fine");
    }

    void manyAtOnceFromSeveralThreads()
    {
        Scene scene;
        scene.server.handler = [](const ServedRequest &request, QTcpSocket &socket) {
            socket.write(ScriptedServer::response(200, request.body));
        };
        std::atomic<int> good = 0;
        std::vector<std::jthread> threads;
        for (int thread = 0; thread < 4; ++thread) {
            threads.emplace_back([&scene, &good, thread] {
                QList<QFuture<UrlResponse>> futures;
                const auto body = [thread](int i) { return QByteArray::number(thread * 1000 + i); };
                for (int i = 0; i < 25; ++i)
                    futures += scene.session->data(scene.request(u"/"_s, "POST", body(i)));
                for (int i = 0; i < 25; ++i)
                    good += futures[i].result().body == body(i);
            });
        }
        QTRY_COMPARE_WITH_TIMEOUT(good, 100, 60'000);
        QCOMPARE(scene.server.requests.size(), 100);
    }
};

QTEST_GUILESS_MAIN(UrlSessionTest)
#include "tst_urlsession.moc"
