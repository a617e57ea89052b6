// SPDX-License-Identifier: MIT
#include "ui/conversation/composer/composerlayout.h"
#include "ui/conversation/composer/imagefiles.h"
#include "ui/support/samples.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

class ComposerRulesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void heights_data()
    {
        QTest::addColumn<double>("measured");
        QTest::addColumn<double>("present");
        QTest::addColumn<std::optional<double>>("taken");
        const auto add = [](const char *tag, double measured, double present,
                            std::optional<double> taken) {
            QTest::newRow(tag) << measured << present << taken;
        };
        add("first, one line", 37, 0, 40);
        add("at the least", 37, 40, {});
        add("grows", 62, 40, 62);
        add("shrinks", 40, 62, 40);
        add("within the dead band", 100.6, 100.2, {});
        add("half a point", 100.5, 100, {});
        add("beyond the dead band", 100.8, 100.2, 100.8);
        add("above the most", 5000, 190, 200);
        add("stays at the most", 5000, 200, {});
    }

    void heights()
    {
        QFETCH(const double, measured);
        QFETCH(const double, present);
        QFETCH(const std::optional<double>, taken);
        QCOMPARE(ComposerRules().update(measured, present, 200), taken);
    }

    void cornersTighten_data()
    {
        QTest::addColumn<double>("height");
        QTest::addColumn<double>("radius");
        QTest::newRow("unmeasured") << 0.0 << 30.0;
        QTest::newRow("one line") << 40.0 << 30.0;
        QTest::newRow("rest") << 60.0 << 30.0;
        QTest::newRow("half way") << 140.0 << 18.0;
        QTest::newRow("full") << 200.0 << 14.25;
        QTest::newRow("beyond") << 500.0 << 14.0;
    }

    void cornersTighten()
    {
        QFETCH(const double, height);
        QFETCH(const double, radius);
        QCOMPARE(ComposerRules().cornerRadius(height), radius);
        const ComposerRules flat{.editorMinHeight = 40, .editorMaxHeight = 40};
        QCOMPARE(flat.cornerRadius(height), 30);
    }

    void roomIsShared_data()
    {
        QTest::addColumn<double>("available");
        QTest::addColumn<bool>("hasStrip");
        QTest::addColumn<double>("editor");
        QTest::addColumn<double>("strip");
        QTest::newRow("plenty") << 900.0 << true << 200.0 << 150.0;
        QTest::newRow("just enough") << 374.0 << true << 200.0 << 150.0;
        QTest::newRow("the editor gives way") << 300.0 << true << 126.0 << 150.0;
        QTest::newRow("then the strip") << 150.0 << true << 40.0 << 86.0;
        QTest::newRow("too little") << 20.0 << true << 40.0 << 56.0;
        QTest::newRow("no strip") << 150.0 << false << 130.0 << 0.0;
    }

    void roomIsShared()
    {
        QFETCH(const double, available);
        QFETCH(const bool, hasStrip);
        QFETCH(const double, editor);
        QFETCH(const double, strip);
        const ComposerRules::Room room{.editor = editor, .strip = strip};
        QCOMPARE(ComposerRules().fit(available, hasStrip), room);
    }

    void theLayoutFollowsOnceTheLayoutIsDone()
    {
        ComposerLayout layout;
        const QSignalSpy changes(&layout, &ComposerLayout::measuredHeightChanged);
        QCOMPARE(layout.editorHeight(), 40);
        layout.measure(120);
        layout.measure(180);
        QCOMPARE(layout.measuredHeight(), 0);
        QTRY_COMPARE(layout.editorHeight(), 180);
        layout.setHasStrip(true);
        layout.setAvailableHeight(274); // Takes from the editor what it no longer has.
        QTRY_COMPARE(layout.editorHeight(), 100);
        QCOMPARE(changes.size(), 2);
    }

    void filesBecomeAttachments_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("mimeType"); // Empty: it becomes none.
        const QByteArray png = encoded(solid({2, 2}, Qt::red), "png");
        QTest::newRow("png") << u"a.png"_s << png << u"image/png"_s;
        QTest::newRow("jpeg") << u"B.JPG"_s << encoded(solid({2, 2}, Qt::red), "jpg")
                              << u"image/jpeg"_s;
        QTest::newRow("by content") << u"photo"_s << png << u"image/png"_s;
        QTest::newRow("unknown") << u"photo"_s << QByteArray::fromHex("00e101fe02")
                                 << u"image/png"_s;
        QTest::newRow("text") << u"letter.txt"_s << "Dear all"_ba << QString();
        QTest::newRow("empty") << u"a.png"_s << ""_ba << QString();
    }

    void filesBecomeAttachments()
    {
        QFETCH(const QString, name);
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, mimeType);
        const QTemporaryDir one;
        const QTemporaryDir other;
        QList<std::optional<AttachmentDto>> read;
        for (const QTemporaryDir *folder : {&one, &other}) {
            QFile file(folder->filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
            file.close();
            read += imagefiles::read(QUrl::fromLocalFile(file.fileName()));
        }
        QCOMPARE(read[0].has_value(), !mimeType.isEmpty());
        QCOMPARE(read[0], read[1]); // Says nothing of its folder.
        if (read[0]) {
            QCOMPARE(read[0]->mimeType, mimeType);
            QCOMPARE(read[0]->data, bytes);
            const QFileInfo info(name);
            QVERIFY(read[0]->name.startsWith(info.baseName() + u'-'));
            QCOMPARE(QFileInfo(read[0]->name).suffix(), info.suffix());
        }
        QVERIFY(!imagefiles::read(QUrl::fromLocalFile(one.filePath(u"gone.png"_s))));
        QVERIFY(!imagefiles::read(QUrl::fromLocalFile(one.path())));
    }

    void onlyImageFilesAreTakenFromADrop()
    {
        const QList<QUrl> urls = {QUrl(u"file:///a/b.PNG"_s), QUrl(u"file:///a/b.pdf"_s),
                                  QUrl(u"https://example.org/c.png"_s), QUrl(u"file:///a/d.webp"_s),
                                  QUrl()};
        QCOMPARE(imagefiles::among(urls), QList({urls[0], urls[3]}));
    }
};

QTEST_GUILESS_MAIN(ComposerRulesTest)
#include "tst_composerrules.moc"
