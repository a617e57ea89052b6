// SPDX-License-Identifier: MIT
#include "platform/system/files.h"
#include "testing/ui/createitem.h"
#include "testing/ui/messengerfixture.h"
#include "testing/ui/samples.h"
#include "ui/composer/composerdata.h"
#include "ui/images/imagecache.h"
#include "ui/sharing/imageshare.h"

#include <QtCore/QFile>
#include <QtQuick/QQuickView>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>

extern void qml_register_types_Tolvane_Private();

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

const QUrl address(u"https://cdn.example/photo.png"_s);

/// A view above the popups of its window, as the messenger is.
struct DialogFixture : Fixture
{
    explicit DialogFixture(const QByteArray &type)
    {
        qputenv("HOME", home.path().toUtf8());
        qputenv("XDG_CONFIG_HOME", home.path().toUtf8());
        files::write(files::unusedPath(pathOf({}), u"red.png"_s),
                     encodedImage(solidImage({3, 3}, Qt::red), "png"));
        ImageCache::shared().responses().store(pictureResponse({80, 30}), requestFor(address));
        QVariantMap properties{{u"imageUrl"_s, address}};
        if (type == "TicketComposer")
            properties = {{u"composer"_s, QVariant::fromValue(&composer)}};
        view = createItem(*window.engine(), "import Tolvane.Private\n" + type + " {}", properties)
                   .release();
        view->setParent(&window);
        view->setParentItem(window.contentItem());
        view->setZ(2000000);
        view->setSize({700, 500});
        window.resize(700, 500);
        window.show();
        window.requestActivate();
        if (!QTest::qWaitForWindowActive(&window))
            qFatal("no window");
        view->forceActiveFocus();
        settle();
    }

    QString pathOf(const QString &name) const { return home.filePath(u"Pictures/"_s + name); }
    /// The window that has the dialog: one of its own from Qt 6.8 on.
    QQuickWindow &front()
    {
        const QWindowList windows = QGuiApplication::topLevelWindows();
        const auto own = std::ranges::find_if(
            windows, [this](QWindow *each) { return each->isVisible() && each != &window; });
        return own == windows.end() ? window : static_cast<QQuickWindow &>(**own);
    }

    void press(QKeySequence keys)
    {
        front().requestActivate(); // There is no window manager.
        if (!QTest::qWaitFor([this] { return QGuiApplication::focusWindow() == &front(); }))
            qFatal("no focus");
        QTest::keySequence(&front(), keys);
    }
    bool isBackAt(const QQuickItem *item)
    {
        if (&front() != &window)
            return false;
        window.requestActivate();
        return window.activeFocusItem() == item;
    }

    /// Clicks the item whose text begins with `text`, once it has stopped moving.
    bool click(const QString &text)
    {
        QQuickItem *item = nullptr;
        QPointF center;
        QPointF before(-1, -1);
        if (!QTest::qWaitFor([&] {
                item = MessengerFixture::find(front().contentItem(), text);
                if (item)
                    center = item->mapToScene(QPointF(item->width(), item->height()) / 2);
                QTest::qWait(50);
                return item && std::exchange(before, center) == center;
            }))
            return false;
        QTest::mouseClick(&front(), Qt::LeftButton, {}, center.toPoint());
        return true;
    }

    QTemporaryDir home;
    const std::shared_ptr<TicketData> store = std::make_shared<TicketData>(std::nullopt);
    ComposerData composer{store};
    QQuickView window;
    QQuickItem *view;
};

} // namespace

/// Qt's own dialogs, which are used on systems without native ones.
class PictureDialogsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qml_register_types_Tolvane_Private(); }

    void picturesArePicked()
    {
        DialogFixture fixture("TicketComposer");
        fixture.press(QKeySequence(Qt::Key_Backtab, Qt::Key_Space));
        QVERIFY(fixture.click(u"red.png"_s));
        fixture.press(Qt::Key_Return);
        QTRY_COMPARE(fixture.store->attachments().size(), 1);
    }

    void saving_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QStringList>("buttons");
        QTest::addColumn<bool>("isWritten");
        QTest::newRow("new") << QByteArray() << QStringList{u"viewer_save"_s} << true;
        QTest::newRow("replaced") << QByteArray("x") << QStringList{u"viewer_save"_s, u"Yes"_s}
                                  << true;
        QTest::newRow("kept") << QByteArray("x") << QStringList{u"viewer_save"_s, u"No"_s} << false;
        QTest::newRow("cancelled") << QByteArray("x") << QStringList{} << false;
    }

    void saving()
    {
        QFETCH(const QByteArray, before);
        QFETCH(const QStringList, buttons);
        QFETCH(const bool, isWritten);
        DialogFixture fixture("ImageViewer");
        const ImageShare *share = fixture.view->findChild<ImageShare *>();
        const QString path = fixture.pathOf(share->filename());
        if (!before.isEmpty())
            files::write(path, before);
        const QQuickItem *focused = fixture.window.activeFocusItem();
        QSignalSpy left(fixture.view, SIGNAL(backRequested()));
        fixture.press(QKeySequence(QKeySequence::Save));
        QTRY_VERIFY(!fixture.isBackAt(focused));
        for (const QString &button : buttons)
            QVERIFY(fixture.click(button));
        // From Qt 6.8 on, the dialog stays after "No".
        if (!isWritten && !QTest::qWaitFor([&] { return fixture.isBackAt(focused); }, 300))
            fixture.press(Qt::Key_Escape);
        QTRY_VERIFY(fixture.isBackAt(focused));
        QVERIFY(left.isEmpty());
        settle();
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), isWritten ? share->file().data : before);
    }
};

QTEST_MAIN(PictureDialogsTest)
#include "tst_picturedialogs.moc"
