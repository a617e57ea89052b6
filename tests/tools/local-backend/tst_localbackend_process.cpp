// SPDX-License-Identifier: MIT
// The program: its command line, its start and its end.
#include "runningbackend.h"
#include "testing/process.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using tolvane::test::Process;

class LocalBackendProcess : public QObject
{
    Q_OBJECT

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
        Database(folder + "/foreign").executeScript("CREATE TABLE recipes (name)");
        Database(folder + "/newer")
            .executeScript("PRAGMA application_id = 0x544F4C56; PRAGMA user_version = 9");
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
    const QString m_program = QStringLiteral(TOLVANE_BACKEND_PROGRAM);
    const QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(LocalBackendProcess)
#include "tst_localbackend_process.moc"
