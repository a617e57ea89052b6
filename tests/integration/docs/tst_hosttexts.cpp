// SPDX-License-Identifier: MIT
// The texts that the documents list against those that there are.
#include "document.h"

#include <QtCore/QDirIterator>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace {

const QString sources = u"" TOLVANE_SOURCES "/src/"_s;

/// What the form captures in files of those names, each once, in order.
QStringList captured(const QString &folder, const QStringList &names, const QString &form)
{
    QStringList found;
    QDirIterator files(sources + folder, names, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly))
            return {};
        const QString text = QString::fromUtf8(file.readAll());
        for (const QRegularExpressionMatch &match : QRegularExpression(form).globalMatch(text))
            found += match.captured(1);
    }
    found.removeDuplicates();
    found.sort();
    return found;
}

} // namespace

class HostTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsAreComplete_data()
    {
        QTest::addColumn<QString>("document");
        QTest::addColumn<QString>("heading");
        QTest::addColumn<QStringList>("texts");
        QTest::newRow("of the host") << u"host-guide.md"_s << u"text"_s
                                     << captured(u"ui"_s, {u"*.qml"_s, u"*.cpp"_s},
                                                 u"hostString\\((?:QStringLiteral\\()?\"(.*?)\""_s);
        QTest::newRow("of the library")
            << u"translating.md"_s << u"keys"_s
            << captured(u"resources/translations"_s, {u"tolvane_en.ts"_s}, u"<source>(.*?)</"_s);
    }

    void listsAreComplete()
    {
        QFETCH(const QString, document);
        QFETCH(const QString, heading);
        QFETCH(const QStringList, texts);
        QVERIFY(!texts.isEmpty());
        QStringList listed;
        for (const Document::Row &row : Document(document).rows(heading))
            listed += Document::words(row.value(0));
        listed.sort();
        QCOMPARE(listed, texts);
    }
};

QTEST_GUILESS_MAIN(HostTexts)
#include "tst_hosttexts.moc"
