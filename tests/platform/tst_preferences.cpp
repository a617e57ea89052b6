// SPDX-License-Identifier: MIT
#include "platform/preferences.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

const QString domainName = u"com.example.domain"_s;
const QString key = u"customer.id"_s;

std::unique_ptr<PreferencesDomain> open()
{
    return makeFilePreferences()->open(domainName);
}

QString folder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
}

QString file()
{
    return QDir(folder()).filePath(domainName + u".ini"_s);
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile out(path);
    QVERIFY(out.open(QIODevice::WriteOnly));
    QCOMPARE(out.write(bytes), bytes.size());
}

/// What this program does when a test starts it again, as another host: it writes texts named after
/// `prefix`, and is gone at once.
[[noreturn]] void writeAndDie(const QString &prefix, int count)
{
    for (int i = 0; i < count; ++i)
        open()->setText(prefix + QString::number(i), prefix);
    std::raise(SIGKILL);
    std::abort();
}

std::unique_ptr<QProcess> startWriter(const QString &prefix, int count)
{
    auto process = std::make_unique<QProcess>();
    process->start(QCoreApplication::applicationFilePath(),
                   {u"write"_s, prefix, QString::number(count)});
    return process;
}

} // namespace

class PreferencesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { QDir(folder()).removeRecursively(); }

    void valuesComeBack_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("plain") << u"01hq3v6m5y9t8s7r6q5p4n3m2k"_s;
        QTest::newRow("unicode") << u"Žluťoučký кот 👨‍👩‍👧‍👦 \u2028"_s;
        QTest::newRow("control") << QString::fromLatin1("a\0\x01\t\r\n\x7f\x1b", 8);
        QTest::newRow("like the file's syntax") << u"a=b;c,d # [x] \"q\" \\x41 %20"_s;
        QTest::newRow("like bytes") << u"@ByteArray(x)"_s;
        QTest::newRow("like nothing") << u"@Invalid()"_s;
        QTest::newRow("at sign") << u"@"_s;
        QTest::newRow("blanks") << u"  "_s;
        QTest::newRow("list") << u"a, b, c"_s;
        QTest::newRow("long") << QString(300'000, QLatin1Char('x'));
    }

    void valuesComeBack()
    {
        QFETCH(const QString, text);
        // Broken UTF-8 in front: bytes are bytes.
        const QByteArray bytes = QByteArray("\xff\0\x80", 3) + text.toUtf8();
        const QString bytesKey = u"branding"_s;
        open()->setText(key, text);
        open()->setBytes(bytesKey, bytes);
        QCOMPARE(open()->text(key), text);
        QCOMPARE(open()->bytes(bytesKey), bytes);
        open()->setBytes(bytesKey, text.toUtf8());
        QCOMPARE(open()->bytes(bytesKey), text.toUtf8());
        // The kinds keep apart.
        QVERIFY(!open()->bytes(key));
        QVERIFY(!open()->text(bytesKey));
        open()->setText(key, std::nullopt);
        QVERIFY(!open()->text(key));
        open()->setBytes(bytesKey, std::nullopt);
        QVERIFY(!open()->bytes(bytesKey));
    }

    void onlyTheOwnerReads()
    {
        constexpr auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        for (const char *value : {"first", "second"}) {
            open()->setText(key, QString::fromLatin1(value));
            QVERIFY(!(QFile::permissions(file()) & others));
        }
        QVERIFY(QFile::setPermissions(file(), QFile::ReadOwner | QFile::WriteOwner | others));
        open()->setText(key, u"third"_s);
        QVERIFY(!(QFile::permissions(file()) & others));
        QCOMPARE(QDir(folder()).entryList(QDir::Files | QDir::Hidden).size(), 1);
    }

    void hostsThatDieAtOnceLoseNothing()
    {
        constexpr int count = 40;
        const QStringList prefixes = {u"a"_s, u"b"_s, u"c"_s, u"d"_s};
        std::vector<std::unique_ptr<QProcess>> writers;
        for (const QString &prefix : prefixes)
            writers.push_back(startWriter(prefix, count));
        for (const auto &writer : writers) {
            QVERIFY(writer->waitForFinished(60'000));
            QCOMPARE(writer->exitStatus(), QProcess::CrashExit);
        }
        for (const QString &prefix : prefixes) {
            for (int i = 0; i < count; ++i)
                QCOMPARE(open()->text(prefix + QString::number(i)), prefix);
        }
    }

    void damagedFilesReadAsEmpty_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("binary") << QByteArray("\0\xff\x80=\n[\0]\\x\n%%%\r\n=\x01\xfe", 20);
        QTest::newRow("no section") << QByteArray("a line without meaning\n]]]]\n");
        QTest::newRow("cut value") << QByteArray("[General]\nbranding=\"@ByteArray(abc");
        QTest::newRow("cut key") << QByteArray("[General]\ncustomer.i");
        QTest::newRow("wrong kinds")
            << QByteArray("[General]\ncustomer.id=@Variant(\\0\\0\\0\\x7f)\n"
                          "branding=@Rect(1 2 3 4)\n");
        QTest::newRow("list") << QByteArray("[General]\ncustomer.id=a, b\n");
        QTest::newRow("noise") << QByteArray(100'000, '\xa5');
    }

    void damagedFilesReadAsEmpty()
    {
        QFETCH(const QByteArray, content);
        QVERIFY(QDir().mkpath(folder()));
        writeFile(file(), content);
        QVERIFY(!open()->text(key));
        QVERIFY(!open()->bytes(u"branding"_s));
        open()->setText(key, u"new"_s);
        QCOMPARE(open()->text(key), u"new"_s);
    }

    void whereNothingCanBeWritten_data()
    {
        QTest::addColumn<bool>("folderIsAFile");
        QTest::newRow("a folder in place of the file") << false;
        QTest::newRow("a file in place of the folder") << true;
    }

    void whereNothingCanBeWritten()
    {
        QFETCH(const bool, folderIsAFile);
        QVERIFY(QDir().mkpath(folderIsAFile ? QFileInfo(folder()).path() : file()));
        if (folderIsAFile)
            writeFile(folder(), "in the way");
        QVERIFY(!open() || !open()->text(key));
        if (const auto domain = open())
            domain->setText(u"other"_s, u"lost"_s);
        QVERIFY(!open() || !open()->text(key));
        // Once the obstacle is gone all is well.
        QVERIFY(folderIsAFile ? QFile::remove(folder()) : QDir().rmdir(file()));
        open()->setText(key, u"kept"_s);
        QCOMPARE(open()->text(key), u"kept"_s);
    }
};

int main(int argc, char *argv[])
{
    const bool isWriter = argc == 4 && QByteArrayView(argv[1]) == "write";
    const QTemporaryDir home;
    if (!isWriter) // Writers share the test's.
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
    const QCoreApplication app(argc, argv);
    if (isWriter)
        writeAndDie(QString::fromUtf8(argv[2]), QByteArray(argv[3]).toInt());
    PreferencesTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_preferences.moc"
