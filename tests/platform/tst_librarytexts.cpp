// SPDX-License-Identifier: MIT
#include "platform/system/bundle.h"
#include "platform/system/librarytexts.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

const QDir folder(QStringLiteral(TOLVANE_SOURCES "/src/resources/translations"));

QString fileOf(const QString &language)
{
    QFile file(folder.filePath(u"tolvane_%1.ts"_s.arg(language)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The contents of each element of that name, in order.
QStringList contents(const QString &file, const QString &element)
{
    const QRegularExpression form(u"<%1[^>]*>([^<]*)"_s.arg(element));
    QStringList texts;
    for (const QRegularExpressionMatch &match : form.globalMatch(file))
        texts += match.captured(1);
    return texts;
}

/// A host's translator that translates every key in every context.
struct EagerHost : QTranslator
{
    QString translate(const char *context, const char *key, const char *, int) const override
    {
        return QString::fromUtf8(context) + u'/' + QString::fromUtf8(key);
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class LibraryTextsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageIsComplete_data()
    {
        QTest::addColumn<int>("forms");
        for (const char *two : {"en", "de", "fr", "es", "pt"})
            QTest::newRow(two) << 2;
        QTest::newRow("uk") << 3;
        QTest::newRow("pl") << 3;
        QTest::newRow("ar") << 6;
        QTest::newRow("ja") << 1;
        QCOMPARE(folder.entryList(QDir::Files).size(), 9);
    }

    void everyLanguageIsComplete()
    {
        QFETCH(const int, forms);
        const QString language = QString::fromUtf8(QTest::currentDataTag());
        const QString file = fileOf(language);
        const QStringList keys = contents(file, u"source"_s);
        QVERIFY(!keys.isEmpty());
        QCOMPARE(keys, contents(fileOf(u"en"_s), u"source"_s));
        QCOMPARE(contents(file, u"extracomment"_s).size(), keys.size());
        QCOMPARE(contents(file, u"numerusform"_s).size(), 4 * forms);
        for (const auto &part : {u"extracomment"_s, u"numerusform"_s, u"translation"_s})
            QVERIFY(!contents(file, part).contains(QString()));
        QVERIFY(!file.contains(u"unfinished"_s));

        const LibraryTexts texts({language}); // The compiled translations are complete too.
        const LibraryTexts english({u"en"_s});
        for (const QString &key : keys) {
            for (qint64 count = 0; count < 120; ++count) {
                const bool isPlural = key.startsWith(u'%');
                const QString text = isPlural ? texts.text(key, count) : texts.text(key);
                QVERIFY2(text != key && !text.isEmpty(), qPrintable(key));
                const QString model = isPlural ? QString() : english.text(key);
                for (const QString &place : {u"%"_s, u"%1"_s, u"%2"_s})
                    QCOMPARE(text.count(place), model.count(place));
            }
        }
        QVERIFY(texts.text(u"main_title"_s).endsWith(u' '));
    }

    void countsSelectThePluralForm()
    {
        const std::tuple<QStringList, qint64, QString> cases[] = {
            {{u"en-GB"_s}, 1, u"1 minute ago"_s},
            {{}, 2, u"2 minutes ago"_s},
            {{u"it-IT"_s, u"it"_s, u"pl-PL"_s, u"en"_s}, 3, u"3 minuty temu"_s},
            {{u"pl"_s}, 12, u"12 minut temu"_s},
            {{u"C"_s, u"x"_s}, 12, u"12 minutes ago"_s},
            {{u"uk"_s}, 21, u"21 хвилину тому"_s},
            {{u"ar"_s}, 3, u"قبل ٣ دقائق"_s},
            {{u"ar-MA"_s}, 11, u"قبل 11 دقيقة"_s},
            {{u"de"_s}, 5'000'000'000, u"Vor 5.000.000.000 Minuten"_s}};
        for (const auto &[languages, count, text] : cases)
            QCOMPARE(LibraryTexts(languages).text(u"%lld timeago_minutes"_s, count), text);
    }

    void versionAndBuildOfTheHost()
    {
        const auto bundle = makeApplicationBundle();
        QVERIFY(!bundle->hostVersion() && !bundle->hostBuild());
        QCoreApplication::setApplicationVersion(u"2.0"_s);
        QCOMPARE(bundle->hostVersion(), u"2.0"_s);
        QVERIFY(!bundle->hostBuild());
        QCoreApplication::instance()->setProperty("applicationBuild", 417);
        QCOMPARE(bundle->hostBuild(), u"417"_s);
    }

    void hostAndLibraryTranslationsAreSeparate()
    {
        qputenv("LANGUAGE", "it:pl");
        const auto bundle = makeApplicationBundle();
        QCOMPARE(bundle->hostString(u"Wörter"_s), u"Wörter"_s);
        QCOMPARE(bundle->hostString(u"Back"_s), u"Wstecz"_s);
        EagerHost host;
        QVERIFY(QCoreApplication::installTranslator(&host));
        QCOMPARE(bundle->hostString(u"Wörter"_s), u"Tolvane/Wörter"_s);
        QCOMPARE(bundle->string(u"main_sender_customer_name"_s), u"Ty"_s);
        QCOMPARE(bundle->string(u"Wörter"_s), u"Wörter"_s);
        QCOMPARE(bundle->string(u"Wörter"_s, 2), u"Wörter"_s);
    }
};

QTEST_GUILESS_MAIN(LibraryTextsTest)
#include "tst_librarytexts.moc"
