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

namespace {

/// A response that never ends unless `repeated` is empty.
struct Response
{
    QByteArray head;
    QByteArray repeated;
    /// The repetitions in a block, and the pause after it in milliseconds.
    int repetitions = 4096;
    unsigned long pause = 0;

    void operator()(const Connection &connection) const
    {
        bool isConnected = connection.write(head);
        const QByteArray block = repeated.repeated(repetitions);
        while (isConnected && !block.isEmpty()) {
            isConnected = connection.write(block);
            QThread::msleep(pause);
        }
    }
};

/// A compressed body of zeros: some bytes, and then a unit that expands to megabytes.
Response compressed(const QByteArray &encoding, const char *start, const QByteArray &unit)
{
    return {"HTTP/1.1 200 OK\r\nContent-Encoding: " + encoding + "\r\nConnection: close\r\n\r\n" +
                QByteArray::fromHex(start),
            unit, 16};
}

/// A flushed block of deflate, a mebibyte of zeros.
QByteArray deflated()
{
    return QByteArray::fromHex("ecc13101000000c2a0f54f6d085fa0") + QByteArray(1016, '\0') +
           QByteArray::fromHex("3e030000ffff");
}

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
    request.bodyTimeout = 3s;
    request.maximumBodySize = 16 << 20; // Exceeded in time on a busy machine, too.
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
        QTest::addColumn<Response>("response");
        QTest::addColumn<QByteArray>("result");
        const auto row = [](const char *name, const char *result, const Response &response) {
            QTest::newRow(name) << u"https"_s << response << QByteArray(result);
        };
        const QByteArray head = "HTTP/1.1 200 OK\r\n";
        const QByteArray chunkedHead = head + "Transfer-Encoding: chunked\r\n\r\n";
        const QByteArray field = "X: y\r\n";
        const Response endlessHeader = {head + "X: ", "x"};
        row("one endless header", "-1001", endlessHeader);
        QTest::newRow("without encryption") << u"http"_s << endlessHeader << QByteArray("-1001");
        row("a header of 1 MB", "-1011",
            {head + "X: " + QByteArray(1 << 20, 'x') + "\r\nContent-Length: 0\r\n\r\n", {}});
        row("1,001 headers", "-1011",
            {head + field.repeated(1001) + "Content-Length: 0\r\n\r\n", {}});
        row("endless headers", "-1001", {head, field});
        row("an endless status", "-1001", {"HTTP/1.1 200 ", "x"});
        // Qt 6.4 takes the second one for the response, newer ones wait.
        row("endless interim responses", "|-1001",
            {{}, "HTTP/1.1 103 Early Hints\r\nLink: </a>\r\n\r\n"});
        row("chunks of one byte", "-1001", {chunkedHead, "1\r\nx\r\n"});
        row("an endless extension of a chunk", "-1001", {chunkedHead + "1;", "x"});
        row("an endless trailer", "", {chunkedHead + "0\r\n", field});
        row("endless large chunks", "-1103",
            {chunkedHead, "10000\r\n" + QByteArray(0x10000, 'x') + "\r\n", 16});
        row("endless gzip", "-1011", compressed("gzip", "1f8b0800000000000003", deflated()));
        row("endless deflate", "-1011", compressed("deflate", "789c", deflated()));
        row("endless brotli", "-1011",
            compressed("br", "cfffff7f002400e2b14072efff0d",
                       QByteArray::fromHex("fcffff074002200e0b40f7fedf00")));
        row("endless gzip in gzip", "-1103",
            compressed("gzip, gzip", "1f8b0800000000000003", deflated()));
        row("a body that drips", "-1001", {head + "Content-Length: 1000000\r\n\r\n", "x", 1, 50});
    }

    /// For any response, the request ends, the network thread handles the next request, and it does
    /// not delay the end of the process.
    void responsesAreBounded()
    {
        QFETCH(const QString, scheme);
        QFETCH(const Response, response);
        QFETCH(const QByteArray, result);
        ScriptedServer good;
        good.handler = [](const ServedRequest &, QTcpSocket &socket) {
            socket.write(ScriptedServer::response(200, "fine"));
        };
        const RawServer hostile(scheme, response);
        std::unique_ptr<UrlSession> session = makeNetworkSession();
        const QByteArray outcome = fetch(*session, hostile.url());
        QVERIFY2(result.split('|').contains(outcome), outcome);
        QCOMPARE(fetch(*session, good.url()), "fine");

        const double before = processorSeconds();
        QTest::qWait(500);
        QVERIFY(processorSeconds() - before < 0.25);

        const QFuture<UrlResponse> running = session->data(requestFor(hostile.url()));
        QTest::qWait(300);
        QElapsedTimer timer;
        timer.start();
        session.reset();
        QVERIFY2(timer.elapsed() < 2000, qPrintable(QString::number(timer.elapsed())));
    }

    void certificatesAreVerified()
    {
        const RawServer server(u"https"_s,
                               Response{"HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nfine", {}});
        std::unique_ptr<UrlSession> session = makeNetworkSession();
        QCOMPARE(fetch(*session, server.url()), "fine");
        QCOMPARE(fetch(*session, server.url().replace("127.0.0.1"_L1, "localhost"_L1)), "-1200");
    }
};

QTEST_GUILESS_MAIN(HostileServersTest)
#include "tst_hostileservers.moc"
