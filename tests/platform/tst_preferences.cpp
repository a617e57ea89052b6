// SPDX-License-Identifier: MIT
#include "platform/system/folderlock.h"
#include "platform/system/preferences.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QLockFile>
#include <QtCore/QProcess>
#include <QtCore/QRandomGenerator>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtTest/QTest>

#include <csignal>
#include <cstdio>
#include <functional>
#include <map>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace std::chrono_literals;

namespace {

const QString key = u"customer.id"_s;

std::unique_ptr<PreferencesDomain> open()
{
    return makeFilePreferences()->open(u"com.example.domain"_s);
}

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QString file()
{
    return folder() + u"/com.example.domain.ini"_s;
}

void writeFile(const QByteArray &bytes)
{
    QFile out(file());
    QVERIFY(QDir().mkpath(folder()) && out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(bytes), bytes.size());
}

/// The main function of child processes, which act as further processes of the application.
int runAsChild(const QString &task, const QString &name)
{
    QTextStream out(stdout);
    // Writes on a thread: on the main thread, a write waits for other processes for 20 ms only.
    const std::jthread thread([&] {
        if (task == u"agree"_s) {
            out << open()->exchangeText(key, std::nullopt, name).value();
            return;
        }
        // Writes until it is killed, and reports what it has written.
        for (int i = 0;; ++i) {
            open()->setText(name, QString::number(i));
            std::printf("%d\n", i);
            std::fflush(stdout);
            // Without a pause, the other process would not get the lock before its time-out.
            std::this_thread::sleep_for(3ms);
        }
    });
    return EXIT_SUCCESS;
}

std::unique_ptr<QProcess> startChild(const QString &task, const QString &name)
{
    auto process = std::make_unique<QProcess>();
    process->start(QCoreApplication::applicationFilePath(), {u"child"_s, task, name});
    return process;
}

/// Limits the size of files; without room the disk looks full to this process.
void limitFiles(rlim_t size)
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{size, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// Creates a stale lock file, as a killed process with an earlier version of the library did.
void leaveStaleLock()
{
    QLockFile lock(file() + u".lock"_s);
    QVERIFY(QDir().mkpath(folder()) && lock.lock());
    QVERIFY(QFile::copy(file() + u".lock"_s, file() + u".kept"_s));
    lock.unlock();
    QVERIFY(QFile::rename(file() + u".kept"_s, file() + u".lock"_s));
}

void writeAndRead(const QString &text)
{
    const QByteArray bytes = "\xff\x80" + text.toUtf8(); // Not UTF-8, and kept as it is.
    open()->setText(key, text);
    QCOMPARE(open()->text(key), text);
    QVERIFY(!open()->bytes(key)); // Text and bytes are distinct.
    open()->setBytes(key, text.toUtf8());
    QCOMPARE(open()->bytes(key), text.toUtf8());
    open()->setBytes(key, bytes);
    QCOMPARE(open()->bytes(key), bytes);
    QVERIFY(!open()->text(key));
    open()->setBytes(key, std::nullopt);
    QVERIFY(!open()->bytes(key));
}

} // namespace

class PreferencesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QDir(folder()).removeRecursively(); }

    void valuesRoundTrip()
    {
        for (const QString &text :
             {u""_s, u"Žluťoučký кот 👨‍👩‍👧‍👦 \u2028"_s,
              QString::fromLatin1("a\0\x01\t\r\n\x7f\x1b", 8), u"a=b;c, d # [x] \"q\" \\x41 %20 "_s,
              u"@ByteArray(x)"_s, u"@Invalid()"_s, QString(300'000, u'x')})
            writeAndRead(text);
    }

    void onlyChangesAreWritten()
    {
        open()->setText(key, std::nullopt);
        QVERIFY(!open()->text(key) && !QFile::exists(folder()));
        open()->setText(key, u"old"_s);
        QFile ini(file());
        QVERIFY(ini.open(QIODevice::ReadWrite));
        const QDateTime before(QDate(2001, 2, 3), {});
        QVERIFY(ini.setFileTime(before, QFile::FileModificationTime));
        open()->setText(key, u"old"_s);
        QCOMPARE(QFileInfo(file()).lastModified(), before);
        writeFile(ini.readAll().replace("old", "new")); // As another process might.
        QCOMPARE(open()->text(key), u"new"_s);
    }

    void onlyTheOwnerCanRead()
    {
        constexpr auto owner = QFile::ReadOwner | QFile::WriteOwner;
        constexpr auto user = QFile::ReadUser | QFile::WriteUser; // The same, seen by this process.
        for (const QString &value : {u"first"_s, u"second"_s}) {
            open()->setText(key, value);
            QCOMPARE(QFile::permissions(file()), owner | user);
            QVERIFY(QFile::setPermissions(file(), owner | QFile::ReadGroup | QFile::WriteOther));
        }
        QCOMPARE(QDir(folder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    /// Kills 200 processes at random moments while they write.
    void killedProcessesLoseNoWrites()
    {
        leaveStaleLock();
        int slow = 0;
        for (int round = 0; round < 200; round += 2) {
            std::map<QString, std::unique_ptr<QProcess>> running;
            for (const QString &name : {QString::number(round), QString::number(round + 1)})
                running[name] = startChild(u"write"_s, name);
            for (const auto &[name, process] : running)
                QVERIFY(process->waitForReadyRead(60'000));
            QThread::usleep(QRandomGenerator::global()->bounded(30'000));
            for (const auto &[name, process] : running) {
                process->kill();
                QVERIFY(process->waitForFinished(60'000));
            }
            for (const auto &[name, process] : running) {
                QElapsedTimer timer;
                timer.start();
                QByteArray reported = process->readAllStandardOutput();
                reported.truncate(reported.lastIndexOf('\n'));
                const int last = reported.sliced(reported.lastIndexOf('\n') + 1).toInt();
                const QByteArray stored = open()->text(name).value_or(u"nothing"_s).toUtf8();
                QVERIFY2(stored.toInt() >= last && stored != "nothing",
                         QByteArray::number(last) + " written, " + stored + " found");
                open()->setText(key, name);
                slow += timer.elapsed() >= 50;
            }
        }
        QVERIFY2(slow < 100, qPrintable(QString::number(slow))); // The machine may be busy.
    }

    void startingProcessesAgreeOnOneText()
    {
        std::vector<std::unique_ptr<QProcess>> running;
        for (int i = 0; i < 8; ++i)
            running.push_back(startChild(u"agree"_s, QString::number(i)));
        QSet<QByteArray> texts;
        for (const auto &process : running) {
            QVERIFY(process->waitForFinished(60'000));
            texts += process->readAllStandardOutput();
        }
        QCOMPARE(texts, QSet{open()->text(key)->toUtf8()});
    }

    /// A process that hangs while it holds the lock does not block other processes.
    void heldLocksDoNotBlockOthers()
    {
        const auto content = [] {
            QFile ini(file());
            return ini.open(QIODevice::ReadOnly) ? ini.readAll() : QByteArray();
        };
        open()->setText(key, u"old"_s);
        std::optional<FolderLock> lock(std::in_place, folder());
        QCOMPARE(lock->lock(1s), FolderLock::Result::locked);
        QElapsedTimer timer;
        timer.start();
        open()->setText(key, u"new"_s);
        QVERIFY(timer.elapsed() < 50);
        QCOMPARE(open()->text(key), u"new"_s);
        QVERIFY(!content().contains("new"));
        lock.reset();
        QTRY_VERIFY(content().contains("new"));
    }

    void damagedFilesReadAsEmpty()
    {
        for (const QByteArray &content :
             {QByteArray("\0\xff\x80=\n[\0]\\x\n%%%\r\n=\x01\xfe", 20),
              QByteArray("[General]\nbranding=\"@ByteArray(abc"),
              QByteArray("[General]\ncustomer.i"),
              QByteArray("[General]\ncustomer.id=a, b\nbranding=@Size(1 2)"),
              QByteArray(100'000, '\xa5')}) {
            writeFile(content);
            QVERIFY(!open()->text(key) && !open()->bytes(u"branding"_s));
            open()->setText(key, u"new"_s);
            QCOMPARE(open()->text(key), u"new"_s);
        }
    }

    void failedWritesAreKeptForTheProcess_data()
    {
        using Obstacle = std::function<void()>;
        QTest::addColumn<Obstacle>("obstacle");
        QTest::newRow("a folder in place of the file")
            << Obstacle([] { QVERIFY(QDir().mkpath(file())); });
        QTest::newRow("a file in place of the folder") << Obstacle([] {
            QFile inTheWay(folder());
            QVERIFY(inTheWay.open(QIODevice::WriteOnly));
        });
        QTest::newRow("a pipe in place of the file") << Obstacle([] {
            QVERIFY(QDir().mkpath(folder()));
            QVERIFY(mkfifo(QFile::encodeName(file()).constData(), 0600) == 0);
        });
        QTest::newRow("a folder in place of the new file")
            << Obstacle([] { QVERIFY(QDir().mkpath(file() + u".new"_s)); });
        QTest::newRow("a full disk") << Obstacle([] { limitFiles(0); });
        QTest::newRow("a read-only folder") << Obstacle([] { // For all users but root.
            QVERIFY(QDir().mkpath(folder()));
            QVERIFY(QFile::setPermissions(folder(), QFile::ReadOwner | QFile::ExeOwner));
        });
        QTest::newRow("a link to nowhere") << Obstacle(
            [] { QVERIFY(QDir().mkpath(folder()) && QFile::link(u"/none/file"_s, file())); });
    }

    void failedWritesAreKeptForTheProcess()
    {
        QFETCH(const std::function<void()>, obstacle);
        obstacle();
        open()->setText(key, u"first"_s);
        QCOMPARE(open()->text(key), u"first"_s);
        limitFiles(RLIM_INFINITY);
        if (!QFileInfo(file()).isFile()) { // A pipe has been replaced.
            QFile::remove(folder());
            QDir(folder()).removeRecursively();
        }
        open()->setText(u"other"_s, u"second"_s);
        QSettings settings(file(), QSettings::IniFormat);
        QCOMPARE(settings.value(key), u"first"_s);
        QCOMPARE(settings.value("other"), u"second"_s);
    }
};

int main(int argc, char *argv[])
{
    const bool isChild = argc > 3 && QByteArrayView(argv[1]) == "child";
    const QTemporaryDir home;
    if (!isChild) // Child processes share the test's folder.
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QCoreApplication app(argc, argv);
    if (isChild)
        return runAsChild(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    PreferencesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_preferences.moc"
