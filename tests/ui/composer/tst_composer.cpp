// SPDX-License-Identifier: MIT
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/system/files.h"
#include "testing/samplerecords.h"
#include "testing/ui/samples.h"
#include "ui/composer/composerdata.h"
#include "ui/presentation/viewsengine.h"

#include <tolvane/tolvane.h>

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
    return {name, u"image/png"_s, encodedImage(solidImage({40, 30}, color), "png")};
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
struct ComposerFixture : Fixture
{
    ComposerFixture()
    {
        setKey();
        session->handler = [this](const UrlRequest &) {
            if (isFailing)
                throw UrlError(UrlError::notConnectedToInternet);
            return jsonResponse(makeTicket({makeMessage(u"m1"_s)}));
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
        ComposerFixture fixture;
        QVERIFY(fixture.isReady());
        QVERIFY(fixture.hasPlaceholder());
        const double rest = fixture.item->implicitHeight();
        fixture.type(u" "_s);
        QVERIFY(!fixture.hasPlaceholder());
        fixture.press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(fixture.store->message(), u" \n"_s);
        QCOMPARE(fixture.find("QQuickFlickable")->property("contentY"), 0.0); // The editor grows.
        QTRY_VERIFY(fixture.item->implicitHeight() >= rest + 15); // The cursor's empty line counts.
        for (int i = 0; i < 20; ++i)
            fixture.press(Qt::Key_Enter, Qt::ShiftModifier);
        QTRY_COMPARE(fixture.item->implicitHeight(), 220);
        const auto cursor = fixture.editor()->property("cursorRectangle").toRectF();
        const auto isInSight = [&] {
            const QQuickItem *editor = fixture.find("AutoSizingTextEditor");
            return editor->boundingRect().contains(
                fixture.editor()->mapRectToItem(editor, cursor).center());
        };
        QTRY_VERIFY(isInSight());
        fixture.item->setProperty("maximumHeight", 120);
        QTRY_COMPARE(fixture.item->implicitHeight(), 120);
        QTRY_VERIFY(isInSight());
        fixture.store->setMessage({});
        QTRY_COMPARE(fixture.item->implicitHeight(), rest);
    }

    void enterSendsOrBreaksTheLine()
    {
        pressEnter(true, Qt::NoModifier, {}, true);
        pressEnter(true, Qt::ControlModifier, {}, true);
        pressEnter(true, Qt::ShiftModifier, {}, false);
        pressEnter(true, Qt::NoModifier, u"に"_s, false); // While composing.
        pressEnter(false, Qt::NoModifier, {}, false);
    }

private:
    static void pressEnter(bool enterSends, Qt::KeyboardModifiers modifiers, const QString &preedit,
                           bool isSent)
    {
        ComposerFixture fixture;
        Tolvane::setEnterSends(enterSends);
        QVERIFY(fixture.isReady());
        fixture.type(u"hi"_s);
        if (!preedit.isEmpty())
            fixture.compose(preedit);
        fixture.press(Qt::Key_Return, modifiers);
        QCOMPARE(!fixture.session->requests.isEmpty(), isSent);
        QCOMPARE(fixture.store->message().isEmpty(), isSent);
    }

private Q_SLOTS:
    void onlyASuccessfulSendClearsTheText()
    {
        ComposerFixture fixture;
        QVERIFY(fixture.isReady());
        fixture.press(Qt::Key_Return, Qt::ControlModifier); // There is nothing to send.
        QVERIFY(fixture.delegate->events.isEmpty());
        fixture.isFailing = true;
        fixture.type(u"hi"_s);
        fixture.press(Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(!fixture.composer.isSendingMessage() && !fixture.composer.isSendDisabled());
        QCOMPARE(fixture.editor()->property("text"), u"hi"_s);
        QVariantMap properties = fixture.delegate->properties(u"user_action"_s);
        QCOMPARE(properties.value(u"action_type"_s), u"send_button_tapped"_s);
        QCOMPARE(properties.value(u"screen_name"_s), u"ticket"_s);
        QCOMPARE(properties.value(u"has_message"_s), true);
        QCOMPARE(properties.value(u"attachment_count"_s), 0);

        fixture.isFailing = false;
        fixture.session->held = true;
        fixture.press(Qt::Key_Tab);
        QVERIFY(!fixture.editor()->hasActiveFocus());
        fixture.press(Qt::Key_Space); // The button, by keyboard.
        QVERIFY(fixture.composer.isSendingMessage() && fixture.editor()->hasActiveFocus());
        QVERIFY(fixture.find("ProgressIndicator")->isVisible());
        fixture.press(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(fixture.session->requests.size(), 2);
        fixture.session->release();
        settle();
        QCOMPARE(fixture.editor()->property("text"), QString());
        QVERIFY(fixture.store->ticket() && fixture.composer.isSendDisabled());
    }

    void aDisabledEditorKeepsItsText()
    {
        ComposerFixture fixture;
        QVERIFY(fixture.isReady());
        fixture.type(u"draft"_s);
        fixture.session->held = true;
        detach(fixture.store->fetchTicket(u"t1"_s));
        fixture.type(u"x"_s);
        QVERIFY(!fixture.editor()->isEnabled());
        fixture.session->release();
        settle();
        QVERIFY(fixture.editor()->hasActiveFocus());
        fixture.type(u"y"_s);
        QCOMPARE(fixture.store->message(), u"drafty"_s);
        fixture.press(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(fixture.store->message() != u"drafty"_s);
    }

    void pasting()
    {
        const QString text = u"text/plain"_s;
        const QString html = u"text/html"_s;
        paste({text}, false, {}, text, 0);
        paste({html, text}, false, {}, text, 0);
        paste({text}, true, {}, text, 0); // A table with its picture.
        paste({html}, true, {}, {}, 1);
        paste({text}, false, encodedImage(solidImage({3, 3}, Qt::red), "png"), {}, 1);
        paste({text}, false, "Dear all", {}, 0); // A file that is not a picture.
    }

private:
    static void paste(const QStringList &formats, bool hasImage, const QByteArray &file,
                      const QString &message, int attachments)
    {
        ComposerFixture fixture;
        QVERIFY(fixture.isReady());
        const QTemporaryDir folder;
        // Without escapes, such a name would end the headers of its part of the form.
        QFile written(folder.filePath(u"a\"\r\nb.png"_s));
        QVERIFY(written.open(QIODevice::WriteOnly) && written.write(file) == file.size());
        written.close();
        const bool hasFile = !file.isEmpty();
        auto *clipboard = new QMimeData;
        for (const QString &format : formats)
            clipboard->setData(format, format.toUtf8());
        if (hasImage)
            clipboard->setImageData(solidImage({3, 3}, Qt::red));
        if (hasFile)
            clipboard->setUrls({QUrl::fromLocalFile(written.fileName())});
        QGuiApplication::clipboard()->setMimeData(clipboard);
        fixture.press(Qt::Key_V, Qt::ControlModifier);
        fixture.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(fixture.store->message(), message + message);
        const QList<AttachmentDto> attached = fixture.store->attachments();
        // The same file is attached once.
        QCOMPARE(attached.size(), hasFile ? attachments : 2 * attachments);
        QTRY_COMPARE(fixture.find("BriefNotice")->isVisible(), hasFile && attached.isEmpty());
        if (!attached.isEmpty()) {
            QCOMPARE(attached[0].mimeType, u"image/png"_s);
            QCOMPARE(QImage::fromData(attached[0].data).size(), QSize(3, 3));
            QCOMPARE(attached[0].name.size(), 26);
            QCOMPARE(attached[0].name.startsWith(u"a___b-"_s), hasFile);
        }
    }

private Q_SLOTS:
    void veryLongLinesAreDivided()
    {
        for (const QString &text : {u"some words "_s.repeated(4'000), QString(40'000, u'x')}) {
            ComposerFixture fixture;
            QVERIFY(fixture.isReady());
            fixture.store->setMessage(u"12"_s);
            fixture.press(Qt::Key_Right);
            QGuiApplication::clipboard()->setText(text);
            fixture.press(Qt::Key_V, Qt::ControlModifier);
            fixture.type(u"3"_s);
            QTRY_VERIFY(fixture.find("BriefNotice")->isVisible());
            QString message = fixture.store->message();
            for (const QString &line : message.split(u'\n'))
                QVERIFY(line.size() <= 5'010 && line.size() > 3'000);
            QCOMPARE(message.remove(u'\n'), u"1"_s + text + u"32"_s);
        }
    }

    void theStripShowsDecodablePictures()
    {
        ComposerFixture fixture;
        QVERIFY(fixture.isReady());
        const double rest = fixture.item->implicitHeight();
        const QList attachments = {picture(u"1"_s), AttachmentDto{u"2"_s, u"image/heic"_s, "?"},
                                   picture(u"3"_s, Qt::blue)};
        fixture.store->setAttachments(attachments);
        settle();
        QQuickItem *list = fixture.find("QQuickListView");
        QCOMPARE(list->property("count"), 2);
        QTRY_COMPARE(fixture.item->implicitHeight(), rest + 154);
        const QAbstractItemModel &rows = *fixture.composer.attachments();
        QVERIFY(!rows.data(rows.index(1, 0), AttachmentListModel::pictureRole)
                     .value<QImage>()
                     .isNull());
        QTRY_COMPARE(fixture.window.grabWindow().pixelColor(85, 175), QColor(Qt::red));

        list->forceActiveFocus();
        fixture.press(Qt::Key_Right);
        fixture.press(Qt::Key_Delete);
        QCOMPARE(fixture.store->attachments(), attachments.first(2));
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, QPoint(10 + 150 - 20, 100 + 20));
        QCOMPARE(fixture.store->attachments(), attachments.sliced(1, 1));
        QVERIFY(!fixture.composer.isSendDisabled());
        QTRY_VERIFY(fixture.editor()->hasActiveFocus());
        QTRY_COMPARE(fixture.item->implicitHeight(), rest);
    }

    void filesReadDuringASendAreAddedAfterwards()
    {
        ComposerFixture fixture;
        auto *workers = new HeldExecutor;
        platform().workers.reset(workers);
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.png"_s);
        QVERIFY(solidImage({3, 3}, Qt::red).save(file));
        fixture.store->setMessage(u"hello"_s);
        fixture.composer.addFiles({QUrl::fromLocalFile(file)});
        fixture.session->held = true;
        fixture.composer.send();
        QVERIFY(!fixture.composer.canDrop({QUrl::fromLocalFile(file)}));
        workers->release();
        QVERIFY(fixture.store->attachments().isEmpty());
        fixture.session->release();
        settle();
        QCOMPARE(fixture.store->attachments().size(), 1);
        QVERIFY(fixture.store->message().isEmpty());
        workers->release();
    }

    void dropping()
    {
        ComposerFixture fixture;
        QQmlComponent component(&viewsEngine(), QUrl(views + u"AttachmentDropArea.qml"_s));
        std::unique_ptr<QQuickItem> area(
            qobject_cast<QQuickItem *>(component.createWithInitialProperties(
                {{u"composer"_s, QVariant::fromValue(&fixture.composer)}})));
        area->setParentItem(fixture.window.contentItem());
        area->setSize({360, 640});
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"a.png"_s);
        QVERIFY(solidImage({3, 3}, Qt::red).save(file));
        QMimeData data;
        const auto drop = [&](const QList<QUrl> &urls) {
            data.setUrls(urls);
            QDragEnterEvent enter({50, 50}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                                  {});
            QCoreApplication::sendEvent(&fixture.window, &enter);
            QDropEvent event({50, 50}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(&fixture.window, &event);
            settle();
            return enter.isAccepted();
        };
        QVERIFY(!drop({QUrl(u"file:///a.pdf"_s)}));
        QVERIFY(drop({QUrl(u"file:///a.pdf"_s), QUrl::fromLocalFile(file)}));
        QCOMPARE(fixture.store->attachments().size(), 1);
    }

    void aMissingPickerIsLogged()
    {
        ComposerFixture fixture;
        QVERIFY(fixture.isReady());
        QQuickItem *button = fixture.find("PickImagesButton");
        const QTemporaryDir folder;
        const QString source = folder.filePath(u"Missing.qml"_s);
        files::write(source, "import No.Such.Module\nItem { }");
        button->setProperty("pickerSource", QUrl::fromLocalFile(source));
        Logger::shared().setEnabled(true);
        fixture.press(Qt::Key_Backtab);
        QVERIFY(button->hasActiveFocus());
        fixture.press(Qt::Key_Space);
        QVERIFY(fixture.log->lines.constLast().contains(u"No.Such.Module"_s));
    }
};

QTEST_MAIN(ComposerTest)
#include "tst_composer.moc"
