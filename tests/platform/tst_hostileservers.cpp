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
    void answersAreBounded_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<QByteArray>("result");
        const auto row = [](const char *name, const char *result, Answer answer) {
            QTest::newRow(name) << answer << QByteArray(result);
        };
        row("one header without end", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\nX: ");
            repeat(connection, "x");
        });
        row("headers without end", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\n");
            repeat(connection, "X: y\r\n");
        });
        row("a status without end", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 ");
            repeat(connection, "x");
        });
        row("interim answers without end", "", [](const Connection &connection) {
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
        row("a body that drips", "-1001", [](const Connection &connection) {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
            while (connection.write("x"))
                QThread::msleep(50);
        });
    }

    /// Whatever a server sends: the request ends, the network thread goes on with the next one, and
    /// it does not delay the end of the process.
    void answersAreBounded()
    {
        QFETCH(const Answer, answer);
        QFETCH(const QByteArray, result);
        ScriptedServer good;
        good.handler = [](const ServedRequest &, QTcpSocket &socket) {
            socket.write(ScriptedServer::response(200, "fine"));
        };
        const RawServer hostile(answer);
        std::unique_ptr<UrlSession> session = makeNetworkSession();
        QCOMPARE(fetch(*session, hostile.url()), result);
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
};

QTEST_GUILESS_MAIN(HostileServersTest)
#include "tst_hostileservers.moc"
