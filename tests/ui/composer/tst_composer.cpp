// SPDX-License-Identifier: MIT
#include "analytics/logger.h"
#include "platform/async/await.h"
#include "testing/ui/samples.h"
#include "testing/wire.h"
#include "ui/composer/composerdata.h"
#include "ui/presentation/viewsengine.h"

#include <QtCore/QMimeData>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

const QString views = u"qrc:/qt-project.org/imports/Tolvane/Private/composer/"_s;

AttachmentDto picture(const QString &name, Qt::GlobalColor color = Qt::red)
{
    return {name, u"image/png"_s, encoded(solid({40, 30}, color), "png")};
}

/// Holds work back until release().
struct HeldExecutor final : Executor
{
    void post(std::function<void()> work) override { held.push_back(std::move(work)); }
    void release()
    {
        for (const auto &work : std::exchange(held, {}))
            work();
        settle();
    }

    std::vector<std::function<void()>> held;
};

/// The composer at the bottom of a window.
struct Scene : Fixture
{
    Scene()
    {
        setKey();
        session->handler = [this](const UrlRequest &) {
            if (isFailing)
                throw UrlError(UrlError::notConnectedToInternet);
            return answer(makeTicket({makeMessage(u"m1"_s)}));
        };
        window.resize(360, 640);
        QQmlComponent component(&viewsEngine(), QUrl(views + u"TicketComposer.qml"_s));
        item.reset(qobject_cast<QQuickItem *>(component.createWithInitialProperties(
            {{u"composer"_s, QVariant::fromValue(&composer)}, {u"focus"_s, true}})));
        item->setParentItem(window.contentItem());
        item->setPosition({16, 100});
        item->setWidth(328);
        window.show();
        window.requestActivate();
    }

    bool isReady()
    {
        QMetaObject::invokeMethod(item.get(), "focusEditor");
        return QTest::qWaitForWindowActive(&window) && editor()->hasActiveFocus() &&
               QTest::qWaitFor([this] { return item->property("isAnimated").toBool(); });
    }

    static QQuickItem *find(QQuickItem *in, const char *type)
    {
        if (QByteArray(in->metaObject()->className()).startsWith(type))
            return in;
        for (QQuickItem *child : in->childItems()) {
            if (QQuickItem *found = find(child, type))
                return found;
        }
        return nullptr;
    }
    QQuickItem *find(const char *type) const { return find(item.get(), type); }
    QQuickItem *editor() const { return find("QQuickTextEdit"); }

    void type(const QString &text)
    {
        for (const QChar character : text)
            QTest::keyClick(&window, character.toLatin1());
    }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&window, Qt::Key(key), modifiers);
        settle();
    }
    void compose(const QString &preedit, const QString &commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(editor(), &event);
    }
    bool hasPlaceholder() const
    {
        return !find("AutoSizingTextEditor")->property("hasContent").toBool();
    }

    bool isFailing = false;
    std::shared_ptr<TicketData> store = std::make_shared<TicketData>(std::nullopt);
    ComposerData composer{store};
    QQuickView window;
    std::unique_ptr<QQuickItem> item;
};

} // namespace

class ComposerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void growsWithTheTextAndScrolls()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        QVERIFY(scene.hasPlaceholder());
        const double rest = scene.item->implicitHeight();
        scene.type(u" "_s);
        QVERIFY(!scene.hasPlaceholder());
        scene.press(Qt::Key_Return);
        QCOMPARE(scene.store->message(), u" \n"_s);
        QTRY_VERIFY(scene.item->implicitHeight() >= rest + 15); // The cursor's empty line counts.
        for (int i = 0; i < 20; ++i)
            scene.press(Qt::Key_Enter);
        QTRY_COMPARE(scene.item->implicitHeight(), 220);
        const auto cursor = scene.editor()->property("cursorRectangle").toRectF();
        const auto isInSight = [&] {
            const QQuickItem *editor = scene.find("AutoSizingTextEditor");
            return editor->boundingRect().contains(
                scene.editor()->mapRectToItem(editor, cursor).center());
        };
        QTRY_VERIFY(isInSight());
        scene.item->setProperty("maximumHeight", 120);
        QTRY_COMPARE(scene.item->implicitHeight(), 120);
        QTRY_VERIFY(isInSight());
        scene.store->setMessage({});
        QTRY_COMPARE(scene.item->implicitHeight(), rest);
    }

    void onlyASuccessfulSendClearsTheText()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.press(Qt::Key_Return, Qt::ControlModifier); // There is nothing to send.
        QVERIFY(scene.delegate->events.isEmpty());
        scene.isFailing = true;
        scene.type(u"hi"_s);
        scene.press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!scene.composer.isSendingMessage() && !scene.composer.isSendDisabled());
        QCOMPARE(scene.editor()->property("text"), u"hi"_s);
        QVariantMap properties = scene.delegate->properties(u"user_action"_s);
        QCOMPARE(properties.value(u"action_type"_s), u"send_button_tapped"_s);
        QCOMPARE(properties.value(u"screen_name"_s), u"ticket"_s);
        QCOMPARE(properties.value(u"has_message"_s), true);
        QCOMPARE(properties.value(u"attachment_count"_s), 0);

        scene.isFailing = false;
        scene.session->held = true;
        scene.press(Qt::Key_Tab);
        QVERIFY(!scene.editor()->hasActiveFocus());
        scene.press(Qt::Key_Space); // The button, by keyboard.
        QVERIFY(scene.composer.isSendingMessage() && scene.editor()->hasActiveFocus());
        QVERIFY(scene.find("ProgressIndicator")->isVisible());
        scene.press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(scene.session->requests.size(), 2);
        scene.session->release();
        settle();
        QCOMPARE(scene.editor()->property("text"), QString());
        QVERIFY(scene.store->ticket() && scene.composer.isSendDisabled());
    }

    void preeditTextIsNotInTheMessage()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.compose(u"にほ"_s);
        QVERIFY(!scene.hasPlaceholder());
        QCOMPARE(scene.store->message(), QString());
        scene.press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(scene.session->requests.isEmpty());
        scene.compose({}, u"日本👨‍👩‍👧"_s);
        QCOMPARE(scene.store->message(), u"日本👨‍👩‍👧"_s);
    }

    void aDisabledEditorKeepsItsText()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        scene.type(u"draft"_s);
        scene.session->held = true;
        detach(scene.store->fetchTicket(u"t1"_s));
        scene.type(u"x"_s);
        QVERIFY(!scene.editor()->isEnabled());
        scene.session->release();
        settle();
        QVERIFY(scene.editor()->hasActiveFocus());
        scene.type(u"y"_s);
        QCOMPARE(scene.store->message(), u"drafty"_s);
        scene.press(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(scene.store->message() != u"drafty"_s);
    }

    void pasting_data()
    {
        QTest::addColumn<QStringList>("formats");
        QTest::addColumn<bool>("hasImage");
        QTest::addColumn<bool>("hasFile");
        QTest::addColumn<QString>("message");
        QTest::addColumn<int>("attachments");
        QTest::newRow("text") << QStringList{u"text/plain"_s} << false << false << u"text/plain"_s
                              << 0;
        QTest::newRow("rich text") << QStringList{u"text/html"_s, u"text/plain"_s} << false << false
                                   << u"text/plain"_s << 0;
        QTest::newRow("table with its picture")
            << QStringList{u"text/plain"_s} << true << false << u"text/plain"_s << 0;
        QTest::newRow("picture") << QStringList{u"text/html"_s} << true << false << QString() << 1;
        QTest::newRow("file") << QStringList{u"text/plain"_s} << false << true << QString() << 1;
    }

    void pasting()
    {
        QFETCH(const QStringList, formats);
        QFETCH(const bool, hasImage);
        QFETCH(const bool, hasFile);
        QFETCH(const QString, message);
        QFETCH(const int, attachments);
        Scene scene;
        QVERIFY(scene.isReady());
        const QTemporaryDir folder;
        // Without escapes, such a name would end the headers of its part of the form.
        const QString file = folder.filePath(u"a\"\r\nb.png"_s);
        auto *clipboard = new QMimeData;
        for (const QString &format : formats)
            clipboard->setData(format, format.toUtf8());
        if (hasImage)
            clipboard->setImageData(solid({3, 3}, Qt::red));
        if (hasFile && solid({3, 3}, Qt::red).save(file))
            clipboard->setUrls({QUrl::fromLocalFile(file)});
        QGuiApplication::clipboard()->setMimeData(clipboard);
        scene.press(Qt::Key_V, Qt::ControlModifier);
        scene.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(scene.store->message(), message + message);
        const QList<AttachmentDto> attached = scene.store->attachments();
        QCOMPARE(attached.size(), hasFile ? 1 : 2 * attachments); // The same file is attached once.
        if (!attached.isEmpty()) {
            QCOMPARE(attached[0].mimeType, u"image/png"_s);
            QCOMPARE(QImage::fromData(attached[0].data).size(), QSize(3, 3));
            QCOMPARE(attached[0].name.size(), 26);
            QCOMPARE(attached[0].name.startsWith(u"a___b-"_s), hasFile);
        }
    }

    void aHugePasteIsKept()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        const QString huge = u"All work and no play.\n"_s.repeated(10'000);
        QGuiApplication::clipboard()->setText(huge);
        scene.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(scene.store->message(), huge);
        QVERIFY(scene.editor()->flags() & QQuickItem::ItemObservesViewport);
        QTRY_COMPARE(scene.item->implicitHeight(), 220);
    }

    void theStripShowsDecodablePictures()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        const double rest = scene.item->implicitHeight();
        const QList attachments = {picture(u"1"_s), AttachmentDto{u"2"_s, u"image/heic"_s, "?"},
                                   picture(u"3"_s, Qt::blue)};
        scene.store->setAttachments(attachments);
        settle();
        QQuickItem *list = scene.find("QQuickListView");
        QCOMPARE(list->property("count"), 2);
        QTRY_COMPARE(scene.item->implicitHeight(), rest + 154);
        const QAbstractItemModel &rows = *scene.composer.attachments();
        QVERIFY(!rows.data(rows.index(1, 0), AttachmentListModel::pictureRole)
                     .value<QImage>()
                     .isNull());
        QTRY_COMPARE(scene.window.grabWindow().pixelColor(85, 175), QColor(Qt::red));

        list->forceActiveFocus();
        scene.press(Qt::Key_Right);
        scene.press(Qt::Key_Delete);
        QCOMPARE(scene.store->attachments(), attachments.first(2));
        QTest::mouseClick(&scene.window, Qt::LeftButton, {}, QPoint(10 + 150 - 20, 100 + 20));
        QCOMPARE(scene.store->attachments(), attachments.sliced(1, 1));
        QVERIFY(!scene.composer.isSendDisabled());
        QTRY_VERIFY(scene.editor()->hasActiveFocus());
        QTRY_COMPARE(scene.item->implicitHeight(), rest);
    }

    void filesReadDuringASendAreAddedAfterwards()
    {
        Scene scene;
        auto *workers = new HeldExecutor;
        platform().workers.reset(workers);
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.png"_s);
        QVERIFY(solid({3, 3}, Qt::red).save(file));
        scene.store->setMessage(u"hello"_s);
        scene.composer.addFiles({QUrl::fromLocalFile(file)});
        scene.session->held = true;
        scene.composer.send();
        QVERIFY(!scene.composer.canDrop({QUrl::fromLocalFile(file)}));
        workers->release();
        QVERIFY(scene.store->attachments().isEmpty());
        scene.session->release();
        settle();
        QCOMPARE(scene.store->attachments().size(), 1);
        QVERIFY(scene.store->message().isEmpty());
        workers->release();
    }

    void dropping()
    {
        Scene scene;
        QQmlComponent component(&viewsEngine(), QUrl(views + u"AttachmentDropArea.qml"_s));
        std::unique_ptr<QQuickItem> area(
            qobject_cast<QQuickItem *>(component.createWithInitialProperties(
                {{u"composer"_s, QVariant::fromValue(&scene.composer)}})));
        area->setParentItem(scene.window.contentItem());
        area->setSize({360, 640});
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.png"_s);
        QVERIFY(solid({3, 3}, Qt::red).save(file));
        QMimeData data;
        const auto drop = [&](const QList<QUrl> &urls) {
            data.setUrls(urls);
            QDragEnterEvent enter({50, 50}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                                  {});
            QCoreApplication::sendEvent(&scene.window, &enter);
            QDropEvent event({50, 50}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&scene.window, &event);
            settle();
            return enter.isAccepted();
        };
        QVERIFY(!drop({QUrl(u"file:///a.pdf"_s)}));
        QVERIFY(drop({QUrl(u"file:///a.pdf"_s), QUrl::fromLocalFile(file)}));
        QCOMPARE(scene.store->attachments().size(), 1);
    }

    void picking()
    {
        Scene scene;
        QVERIFY(scene.isReady());
        QQuickItem *button = scene.find("PickImagesButton");
        const QTemporaryDir folder;
        const auto write = [&](const QString &name, const QByteArray &text) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
            file.close();
            button->setProperty("pickerSource", QUrl::fromLocalFile(file.fileName()));
        };
        Logger::shared().setEnabled(true);
        write(u"Missing.qml"_s, "import No.Such.Module\nItem { }");
        scene.press(Qt::Key_Backtab);
        QVERIFY(button->hasActiveFocus());
        scene.press(Qt::Key_Space);
        QVERIFY(scene.log->lines.constLast().contains(u"No.Such.Module"_s));

        QVERIFY(solid({3, 3}, Qt::red).save(folder.filePath(u"a.png"_s)));
        QVERIFY(solid({3, 3}, Qt::blue).save(folder.filePath(u"b.png"_s)));
        write(u"Picker.qml"_s, "import QtQml\nQtObject { property var patterns\n"
                               "signal picked(var files)\nfunction open() { picked(["
                               "Qt.resolvedUrl('a.png'), Qt.resolvedUrl('gone.png'),"
                               "Qt.resolvedUrl('b.png')]) } }");
        for (int round = 0; round < 2; ++round) {
            scene.press(Qt::Key_Space);
            QCOMPARE(scene.store->attachments().size(), 2);
        }
    }
};

QTEST_MAIN(ComposerTest)
#include "tst_composer.moc"
