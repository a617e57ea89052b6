// SPDX-License-Identifier: MIT
#include "host/eventstream.h"
#include "testing/backendprogram.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane::test;
using tolvane::console::EventStream;

class ConsoleTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void serverSentEvents()
    {
        const auto row = [](const char *name, const QByteArray &bytes, const QByteArrayList &events,
                            const char *lastId = "") {
            EventStream whole;
            QVERIFY2(whole.read(bytes) == events && whole.lastId() == lastId, name);
            EventStream inPieces;
            QByteArrayList read;
            for (const char byte : bytes)
                read += inPieces.read(QByteArray(1, byte));
            QVERIFY2(read == events, name);
        };
        row("LF", "id: 1\ndata: a\n\ndata: b\n\n", {"a", "b"}, "1");
        row("CR LF", "id: 1\r\ndata: a\r\n\r\ndata: b\r\n\r\n", {"a", "b"}, "1");
        row("CR", "id: 1\rdata: a\r\rdata: b\r\r", {"a", "b"}, "1");
        row("several lines", "data: a\ndata:b:c\ndata\ndata:  d\n\n", {"a\nb:c\n\n d"});
        row("comments and other fields", ":data: x\nevent: x\nretry: 1\n\ndata: a\n\n", {"a"});
        row("byte order mark",
            "\xEF\xBB\xBF"
            "data: a\n\n",
            {"a"});
        row("id alone", "id: 7\n\n", {}, "7");
        row("empty id clears the id", "id: 7\n\nid\n\n", {});
        row("id with a NUL", QByteArray("id: 7\n\nid: ?8\n\n").replace('?', '\0'), {}, "7");
        row("incomplete event", "id: 7\ndata: a\n", {});
        const QByteArray halfTheLimit(EventStream::maximumSize / 2, 'x');
        row("long line", "data: " + halfTheLimit + halfTheLimit + "\n\ndata: b\n\n", {"", "b"});
        row("long event", "data: " + halfTheLimit + "\ndata: " + halfTheLimit + "\n\ndata: b\n\n",
            {"", "b"});
    }

    void aConversationSurvivesARestart()
    {
        const QTemporaryDir folder;
        const QList<QByteArrayList> sessions = {
            {"garbage", R"({"cmd":"open"})", R"({"cmd":"setAnalyticsDelegate","enabled":true})",
             R"({"cmd":"initialize","key":"k"})", R"({"cmd":"ticket.new"})",
             R"({"cmd":"ticket.compose","ticket":1,"message":"hello"})",
             R"({"cmd":"ticket.create","ticket":1})"},
            {R"({"cmd":"initialize","key":"k"})", R"({"cmd":"tickets.load"})",
             R"({"cmd":"tickets.state"})"}};
        // The errors of the first two lines, the event and the polled reply; then the same ticket.
        const QList<QByteArrayList> expected = {{"The line is not a JSON object",
                                                 "Tolvane is not initialized",
                                                 "tolvane_ticket_created", "didReceiveMessage"},
                                                {"\"state\":\"open\""}};
        for (int session = 0; session < 2; ++session) {
            const BackendProgram backend(folder.path());
            Process console(QStringLiteral(TOLVANE_CONSOLE), {u"--json"_s},
                            {.environment = {{u"XDG_CONFIG_HOME"_s, folder.path()},
                                             {u"TOLVANE_API_URL"_s, backend.url()},
                                             {u"LANGUAGE"_s, u"en"_s}},
                             .channels = QProcess::SeparateChannels});
            QByteArray output;
            for (const QByteArray &line : sessions[session]) {
                console.write(line + '\n');
                for (qsizetype begin = output.size(); !output.sliced(begin).contains("\"reply\"");)
                    output += console.readLine(); // Throws after a time-out.
            }
            const auto isMissing = [&](const QByteArray &text) { return !output.contains(text); };
            while (std::ranges::any_of(expected[session], isMissing))
                output += console.readLine();
            QCOMPARE(console.waitForExit(), 0);
            QCOMPARE(console.errors(), QByteArray());
        }
    }
};

QTEST_GUILESS_MAIN(ConsoleTest)
#include "tst_console.moc"
