// SPDX-License-Identifier: MIT
#include "testing/ui/samples.h"
#include "ui/attachments/imagefiles.h"
#include "ui/composer/composerlayout.h"

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
    void heightsChangeByMoreThanHalfAPixel()
    {
        struct Case
        {
            double measured;
            double present;
            std::optional<double> taken;
        };
        const Case cases[] = {{37, 0, 40},           {37, 40, {}},       {62, 40, 62},
                              {40, 62, 40},          {100.6, 100.2, {}}, {100.5, 100, {}},
                              {100.8, 100.2, 100.8}, {5000, 190, 200},   {5000, 200, {}}};
        for (const auto &[measured, present, taken] : cases)
            QCOMPARE(ComposerRules().update(measured, present, 200), taken);
    }

    void cornersTighten()
    {
        const std::pair<double, double> cases[] = {{0, 30},   {40, 30},     {60, 30},
                                                   {140, 18}, {200, 14.25}, {500, 14}};
        const ComposerRules flat{.editorMinHeight = 40, .editorMaxHeight = 40};
        for (const auto &[height, radius] : cases) {
            QCOMPARE(ComposerRules().cornerRadius(height), radius);
            QCOMPARE(flat.cornerRadius(height), 30);
        }
    }

    void roomIsShared()
    {
        struct Case
        {
            double available;
            bool hasThumbnails;
            ComposerRules::Heights room;
        };
        const Case cases[] = {{900, true, {200, 150}}, {374, true, {200, 150}},
                              {300, true, {126, 150}}, {150, true, {40, 86}},
                              {20, true, {40, 56}},    {150, false, {130, 0}}};
        for (const auto &[available, hasThumbnails, room] : cases)
            QCOMPARE(ComposerRules().fit(available, hasThumbnails), room);
    }

    void filesBecomeAttachments()
    {
        const QByteArray png = encodedImage(solidImage({2, 2}, Qt::red), "png");
        const QByteArray jpeg = encodedImage(solidImage({2, 2}, Qt::red), "jpg");
        readFile(u"a.png"_s, png, u"image/png"_s);
        readFile(u"B.JPG"_s, jpeg, u"image/jpeg"_s);
        readFile(u"photo"_s, png, u"image/png"_s); // By its content.
        readFile(u"photo"_s, QByteArray::fromHex("00e101fe02"), {});
        readFile(u"a.png"_s, "Dear all", {});
        readFile(u"letter.txt"_s, "Dear all", {});
        readFile(u"a.png"_s, "", {});
    }

private:
    /// Without a type, the file is rejected.
    static void readFile(const QString &name, const QByteArray &bytes, const QString &mimeType)
    {
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
        QCOMPARE(read[0], read[1]); // Does not reveal the folder.
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
};

QTEST_GUILESS_MAIN(ComposerRulesTest)
#include "tst_composerrules.moc"
