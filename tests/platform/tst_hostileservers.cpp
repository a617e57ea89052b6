// SPDX-License-Identifier: MIT
#include "base/errors.h"
#include "platform/network/urlsession.h"
#include "testing/rawserver.h"
#include "testing/scriptedserver.h"

#include <QtCore/QElapsedTimer>
#include <QtNetwork/QTcpSocket>
#include <QtTest/QTest>

#include <ctime>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

using Connection = RawServer::Connection;
using Answer = void (*)(const Connection &);
Q_DECLARE_METATYPE(Answer)

namespace {

/// Writes a text again and again until the other side has gone.
void repeat(const Connection &connection, const QByteArray &text, int repetitions = 4096)
{
    const QByteArray block = text.repeated(repetitions);
    while (connection.write(block)) {
    }
}

/// Writes a compressed body of zeros: some bytes, and then a unit that expands to megabytes.
void compressed(const Connection &connection, const char *encoding, const char *start,
                const QByteArray &unit)
{
    connection.write("HTTP/1.1 200 OK\r\nContent-Encoding: " + QByteArray(encoding) +
                     "\r\nConnection: close\r\n\r\n" + QByteArray::fromHex(start));
    repeat(connection, unit, 16);
}

/// A flushed block of deflate, a mebibyte of zeros.
QByteArray deflated()
{
    return QByteArray::fromHex("ecc13101000000c2a0f54f6d085fa0") + QByteArray(1016, '\0') +
           QByteArray::fromHex("3e030000ffff");
}

constexpr const char *chunkedHead = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n";

double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
}

UrlRequest requestFor(const QString &url)
{
    UrlRequest request;
    request.url = QUrl(url);
    return request;
}

/// The body of the response, or the code of the error.
QByteArray fetch(UrlSession &session, const QString &url)
{
    UrlRequest request = requestFor(url);
    request.timeout = 1s;
    request.responseTime = 3s;
    QFuture<UrlResponse> response = session.data(request);
    if (!QTest::qWaitFor([&] { return response.isFinished(); }, 10'000))
        return "nothing";
    try {
        return response.result().body;
    } catch (const UrlError &error) {
        return QByteArray::number(error.code());
    }
}

} // namespace

class HostileServersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void responsesAreBounded_data()
    {
        QTest::addColumn<QString>("scheme");
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QByteArray>("result");
        const auto row = [](const char *name, const char *result, Answer answer) {
            QTest::newRow(name) << u"https"_s << answer << QByteArray(result);
        };
        const Answer endlessHeader = [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\nX: ");
            repeat(connection, "x");
        };
        row("one header without end", "-1001", endlessHeader);
        QTest::newRow("without encryption") << u"http"_s << endlessHeader << QByteArray("-1001");
        row("a header of 1 MB", "-1011", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\nX-Tolvane-Customer: " + QByteArray(1 << 20, 'x') +
                             "\r\nContent-Length: 0\r\n\r\n");
        });
        row("1,001 headers", "-1011", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\n" + QByteArray("X: y\r\n").repeated(1001) +
                             "Content-Length: 0\r\n\r\n");
        });
        row("headers without end", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\n");
            repeat(connection, "X: y\r\n");
        });
        row("a status without end", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 ");
            repeat(connection, "x");
        });
        // Qt 6.4 takes the second one for the response, newer ones wait.
        row("interim answers without end", "|-1001", [](const Connection &connection) {
            repeat(connection, "HTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n");
        });
        row("chunks of one byte", "-1001", [](const Connection &connection) {
            connection.write(chunkedHead);
            repeat(connection, "1\r\nx\r\n");
        });
        row("a chunk's extension without end", "-1001", [](const Connection &connection) {
            connection.write(chunkedHead);
            connection.write("1;");
            repeat(connection, "x");
        });
        row("a trailer without end", "", [](const Connection &connection) {
            connection.write(chunkedHead);
            connection.write("0\r\n");
            repeat(connection, "X: y\r\n");
        });
        row("large chunks without end", "-1103", [](const Connection &connection) {
            connection.write(chunkedHead);
            repeat(connection, "10000\r\n" + QByteArray(0x10000, 'x') + "\r\n", 16);
        });
        row("gzip without end", "-1011", [](const Connection &connection) {
            compressed(connection, "gzip", "1f8b0800000000000003", deflated());
        });
        row("deflate without end", "-1011", [](const Connection &connection) {
            compressed(connection, "deflate", "789c", deflated());
        });
        row("brotli without end", "-1011", [](const Connection &connection) {
            compressed(connection, "br", "cfffff7f002400e2b14072efff0d",
                       QByteArray::fromHex("fcffff074002200e0b40f7fedf00"));
        });
        row("gzip in gzip without end", "-1103", [](const Connection &connection) {
            compressed(connection, "gzip, gzip", "1f8b0800000000000003", deflated());
        });
        row("a body that drips", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
            while (connection.write("x"))
                QThread::msleep(50);
        });
    }

    /// Whatever a server sends: the request ends, the network thread goes on with the next one, and
    /// it does not delay the end of the process.
    void responsesAreBounded()
    {
        QFETCH(const QString, scheme);
        QFETCH(const Answer, answer);
        QFETCH(const QByteArray, result);
        ScriptedServer good;
        good.handler = [](const ServedRequest &, QTcpSocket &socket) {
            socket.write(ScriptedServer::response(200, "fine"));
        };
        const RawServer hostile(scheme, answer);
        std::unique_ptr<UrlSession> session = makeNetworkSession();
        const QByteArray outcome = fetch(*session, hostile.url());
        QVERIFY2(result.split('|').contains(outcome), outcome);
        QCOMPARE(fetch(*session, good.url()), "fine");

        const double before = processorSeconds();
        QTest::qWait(500);
        QVERIFY(processorSeconds() - before < 0.25);

        QFuture<UrlResponse> running = session->data(requestFor(hostile.url()));
        QTest::qWait(300);
        QElapsedTimer timer;
        timer.start();
        session.reset();
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }

    void certificatesAreVerified()
    {
        const RawServer server(u"https"_s, [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nfine");
        });
        std::unique_ptr<UrlSession> session = makeNetworkSession();
        QCOMPARE(fetch(*session, server.url()), "fine");
        QCOMPARE(fetch(*session, server.url().replace("127.0.0.1"_L1, "localhost"_L1)), "-1200");
    }
};

QTEST_GUILESS_MAIN(HostileServersTest)
#include "tst_hostileservers.moc"
