// SPDX-License-Identifier: MIT
// The program as it is started and ended.
#include "runningbackend.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QString program = QStringLiteral(TOLVANE_BACKEND_PROGRAM);

} // namespace

class LocalBackendProcess : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void badStarts_data();
    void badStarts();
    void servesUntilSignal_data();
    void servesUntilSignal();

private:
    QString inFolder(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    const QTemporaryDir m_folder;
    const RunningBackend m_other;
};

void LocalBackendProcess::badStarts_data()
{
    using tolvane::backend::Database;
    Database(inFolder("foreign").toStdString()).script("CREATE TABLE recipes (name TEXT)");
    Database(inFolder("newer").toStdString())
        .script("PRAGMA application_id = 0x544F4C56; PRAGMA user_version = 9");
    const QByteArray branding =
        QByteArray::fromStdString(tolvane::backend::loadSettings({}, {}).branding);

    QTest::addColumn<QString>("arguments");
    // What the line has to name.
    QTest::addColumn<QByteArray>("named");
    QTest::addColumn<QByteArray>("file");
    const auto row = [](const char *arguments, const char *named,
                        const QByteArray &file = "prose, neither a database nor JSON") {
        QTest::addRow("%s %s", arguments, named)
            << QString::fromLatin1(arguments) << QByteArray(named) << file;
    };
    row("--colour blue", "colour");
    row("stray", "stray");
    row("--port x", "--port");
    row("--port 65536", "65535");
    row("--port 80.5", "whole number");
    row("--port", "port");
    row("--port TAKEN --db :memory:", "--port");
    row("--host 192.0.2.1 --db :memory:", "192.0.2.1");
    row("--reply-delay -1", "--reply-delay");
    row("--reply-delay nan", "--reply-delay");
    row("--max-body 0", "--max-body");
    row("--key=", "--key");
    row("--db DIR", "--db");
    row("--db DIR/file/below", "--db");
    row("--db DIR/file", "not a database");
    row("--db DIR/foreign", "another program's");
    row("--db DIR/newer", "newer");
    row("--branding DIR/none", "--branding");
    row("--branding DIR/file", "no JSON");
    row("--branding DIR/file", "object", "[]");
    row("--branding DIR/file", "accentDark", QByteArray(branding).replace("#F0935B", "orange"));
    row("--branding DIR/file", "logoDark", QByteArray(branding).replace("{", "{\"logoDark\":1,"));
    const QByteArray schedules = R"([{"id":"a","startTime":"2026-01-05T22:00:00+01:00",)"
                                 R"("endTime":"2026-01-05T23:30:00Z","days":["Sat"]}])";
    row("--schedules DIR/file", "days", QByteArray(schedules).replace("Sat", "Samstag"));
    row("--schedules DIR/file", "startTime", QByteArray(schedules).replace("+01:00", ""));
    row("--schedules DIR/file --port x", "--port", schedules);
}

void LocalBackendProcess::badStarts()
{
    QFETCH(QString, arguments);
    QFETCH(QByteArray, named);
    QFETCH(QByteArray, file);
    QFile written(inFolder("file"));
    QVERIFY(written.open(QIODevice::WriteOnly) && written.write(file) == file.size());
    written.close();
    arguments.replace("TAKEN"_L1, QString::number(m_other.port()));
    arguments.replace("DIR"_L1, m_folder.path());

    QProcess process;
    process.start(program, arguments.split(u' '));
    QVERIFY(process.waitForFinished(static_cast<int>(patience.count())));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
    const QByteArray line = process.readAllStandardError();
    QVERIFY2(line.startsWith("tolvane-backend: ") && line.contains(named) &&
                 line.indexOf('\n') == line.size() - 1,
             line.constData());
    QVERIFY(written.open(QIODevice::ReadOnly));
    QCOMPARE(written.readAll(), file);
}

void LocalBackendProcess::servesUntilSignal_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("terminate") << SIGTERM;
    QTest::newRow("interrupt") << SIGINT;
}

void LocalBackendProcess::servesUntilSignal()
{
    QFETCH(int, signal);
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, inFolder("data"));
    process.setProcessEnvironment(environment);
    process.start(program, {u"--port"_s, u"0"_s});
    while (!process.canReadLine())
        QVERIFY(process.waitForReadyRead(static_cast<int>(patience.count())));
    const QString line = QString::fromUtf8(process.readAllStandardOutput());
    QVERIFY(line.startsWith("listening on http://127.0.0.1:"_L1) && line.endsWith("/api\n"_L1));

    Customer customer(QUrl(line.trimmed().section(u' ', 2)).port());
    const std::string path = customer.open();
    QCOMPARE(customer.get(path).status, 200);
    const auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QCOMPARE(QFile::permissions(inFolder("data/tolvane-backend/backend.sqlite")), owner);
    QCOMPARE(QFile::permissions(inFolder("data/tolvane-backend")),
             owner | QFile::ExeOwner | QFile::ExeUser);

    QElapsedTimer timer;
    timer.start();
    QCOMPARE(::kill(static_cast<pid_t>(process.processId()), signal), 0);
    QVERIFY(process.waitForFinished(static_cast<int>(patience.count())));
    // An idle connection ends by itself after ten seconds.
    QVERIFY2(timer.elapsed() < 9'000, "the open connection held up the end");
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QCOMPARE(process.readAllStandardError(), QByteArray());
}

QTEST_GUILESS_MAIN(LocalBackendProcess)
#include "tst_localbackend_process.moc"
