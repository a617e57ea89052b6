// SPDX-License-Identifier: MIT
#include "platform/system/preferences.h"

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>
#include <thread>

using namespace Qt::StringLiterals;
using namespace tolvane;

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

constexpr int writes = 25;

/// Runs when a test starts this program again, as another process of the application: writes values
/// on two threads at once, and kills the process after the last of them.
int writeAndDie(const QString &writer)
{
    const auto write = [&writer](const QString &thread) {
        for (int i = 0; i < writes; ++i)
            open()->setText(writer + thread + QString::number(i), writer);
    };
    std::jthread(write, u"a"_s), write(u"b"_s);
    return std::raise(SIGKILL);
}

} // namespace

class PreferencesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QDir(folder()).removeRecursively(); }

    void valuesRoundTrip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("unicode") << u"Žluťoučký кот 👨‍👩‍👧‍👦 \u2028"_s;
        QTest::newRow("control") << QString::fromLatin1("a\0\x01\t\r\n\x7f\x1b", 8);
        QTest::newRow("file syntax") << u"a=b;c, d # [x] \"q\" \\x41 %20 "_s;
        QTest::newRow("serialized bytes") << u"@ByteArray(x)"_s;
        QTest::newRow("serialized invalid value") << u"@Invalid()"_s;
        QTest::newRow("long") << QString(300'000, u'x');
    }

    void valuesRoundTrip()
    {
        QFETCH(const QString, text);
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

    void killedProcessesLoseNoWrites()
    {
        const QStringList writers = {u"x"_s, u"y"_s, u"z"_s};
        std::vector<std::unique_ptr<QProcess>> running;
        for (const QString &writer : writers) {
            running.push_back(std::make_unique<QProcess>());
            running.back()->start(QCoreApplication::applicationFilePath(), {u"die"_s, writer});
        }
        for (const auto &process : running) {
            QVERIFY(process->waitForFinished(60'000));
            QCOMPARE(process->exitStatus(), QProcess::CrashExit);
        }
        for (const QString &writer : writers) {
            for (int i = 0; i < writes; ++i) {
                QCOMPARE(open()->text(writer + u'a' + QString::number(i)), writer);
                QCOMPARE(open()->text(writer + u'b' + QString::number(i)), writer);
            }
        }
    }

    void damagedFilesReadAsEmpty_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("binary") << QByteArray("\0\xff\x80=\n[\0]\\x\n%%%\r\n=\x01\xfe", 20);
        QTest::newRow("cut value") << QByteArray("[General]\nbranding=\"@ByteArray(abc");
        QTest::newRow("cut key") << QByteArray("[General]\ncustomer.i");
        QTest::newRow("other types")
            << QByteArray("[General]\ncustomer.id=a, b\nbranding=@Size(1 2)");
        QTest::newRow("noise") << QByteArray(100'000, '\xa5');
    }

    void damagedFilesReadAsEmpty()
    {
        QFETCH(const QByteArray, content);
        writeFile(content);
        QVERIFY(!open()->text(key) && !open()->bytes(u"branding"_s));
        open()->setText(key, u"new"_s);
        QCOMPARE(open()->text(key), u"new"_s);
    }

    void failedWritesAreNotKept()
    {
        const auto isLost = [] {
            open()->setText(key, u"lost"_s);
            return !open()->text(key);
        };
        QVERIFY(QDir().mkpath(file())); // A folder in place of the file.
        QVERIFY(isLost());
        QVERIFY(QDir(folder()).removeRecursively());
        QFile inTheWay(folder()); // A file in place of the folder.
        QVERIFY(inTheWay.open(QIODevice::WriteOnly) && isLost() && inTheWay.remove());
        open()->setText(key, u"kept"_s);
        QCOMPARE(open()->text(key), u"kept"_s);
    }
};

int main(int argc, char *argv[])
{
    const bool isChild = argc > 2 && QByteArrayView(argv[1]) == "die";
    const QTemporaryDir home;
    if (!isChild) // Child processes share the test's folder.
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QCoreApplication app(argc, argv);
    if (isChild)
        return writeAndDie(QString::fromLocal8Bit(argv[2]));
    PreferencesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_preferences.moc"
