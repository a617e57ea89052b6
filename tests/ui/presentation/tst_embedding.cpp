// SPDX-License-Identifier: MIT
#include "testing/ui/messengerfixture.h"

#include <tolvane/messengerwidget.h>
#include <tolvane/views.h>

#include <QtGui/QShortcut>
#include <QtQuickWidgets/QQuickWidget>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>

using namespace tolvane;
using namespace tolvane::test;

namespace {

/// Two embedded messengers: items in the fixture's window, or widgets in one of their own.
struct EmbeddedMessengers
{
    explicit EmbeddedMessengers(MessengerFixture &fixture)
    {
        QFETCH_GLOBAL(const bool, areWidgets);
        for (QQuickItem *&item : items) {
            if (!areWidgets) {
                item = createMessengerItem();
                item->setParentItem(fixture.host.contentItem());
                item->setSize({300, 500});
                continue;
            }
            auto *widget = new MessengerWidget(&window);
            widget->resize(300, 500);
            item = widget->findChild<QQuickWidget *>()->rootObject();
            widgets.push_back(widget);
        }
        setVisible(1, false);
        if (areWidgets)
            window.show();
    }
    ~EmbeddedMessengers() { destroy(); }

    void setVisible(std::size_t index, bool isVisible)
    {
        if (widgets.empty())
            items.at(index)->setVisible(isVisible);
        else
            widgets.at(index)->setVisible(isVisible);
    }

    void destroy()
    {
        if (widgets.empty())
            qDeleteAll(items);
        qDeleteAll(std::exchange(widgets, {}));
        items = {};
    }

    bool showsMessenger(std::size_t index) const
    {
        return MessengerFixture::find(items.at(index), u"main_subtitle"_s);
    }

    QMainWindow window;
    std::array<QQuickItem *, 2> items;
    std::vector<MessengerWidget *> widgets;
};

} // namespace

class EmbeddingTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<bool>("areWidgets");
        QTest::addRow("items") << false;
        QTest::addRow("widgets") << true;
    }

    void theMessengerIsOpenWhileItsItemIsVisible()
    {
        MessengerFixture fixture;
        QVERIFY(fixture.showHost());
        EmbeddedMessengers messengers(fixture);
        fixture.loadSettings();
        QTRY_VERIFY(messengers.showsMessenger(0));
        QVERIFY(!fixture.messenger());
        QQuickWindow *window = messengers.items[0]->window();
        window->contentItem()->forceActiveFocus();
        messengers.items[0]->forceActiveFocus();
        QTest::keyClick(window, Qt::Key_Escape);
        settle();
        QVERIFY(messengers.showsMessenger(0));
        messengers.setVisible(0, false);
        QTRY_COMPARE(fixture.openStates(), (QList<bool>{true, false}));
        messengers.setVisible(0, true);
        QTRY_VERIFY(messengers.showsMessenger(0));
        Tolvane::close();
        QTRY_VERIFY(!messengers.showsMessenger(0) && !Tolvane::isOpen());
        Tolvane::open();
        QTRY_VERIFY(messengers.showsMessenger(0));
        messengers.destroy();
        QVERIFY(!Tolvane::isOpen());
    }

    void theSecondItemWaitsForTheFirst()
    {
        MessengerFixture fixture;
        QVERIFY(fixture.showHost());
        fixture.loadSettings();
        TolvaneViewController::present();
        QTRY_VERIFY(fixture.find(u"main_subtitle"_s));
        EmbeddedMessengers messengers(fixture); // Takes the messenger from the window.
        QTRY_VERIFY(messengers.showsMessenger(0) && !fixture.messenger());
        messengers.setVisible(1, true);
        QTRY_VERIFY(fixture.log->lines.constLast().endsWith(
            u"Another item shows the messenger; this one is empty"_s));
        QVERIFY(messengers.showsMessenger(0) && !messengers.showsMessenger(1));
        messengers.setVisible(0, false);
        QTRY_VERIFY(messengers.showsMessenger(1));
    }

    void theSecondItemFollowsWithoutTheFirst()
    {
        MessengerFixture fixture;
        QVERIFY(fixture.showHost());
        EmbeddedMessengers messengers(fixture);
        messengers.setVisible(1, true);
        settle();
        messengers.setVisible(0, false); // Before initialize().
        settle();
        fixture.loadSettings();
        QTRY_VERIFY(messengers.showsMessenger(1));
    }

    void keysGoBetweenWidgetsAndThePanel()
    {
        QFETCH_GLOBAL(const bool, areWidgets);
        if (!areWidgets)
            return; // tst_presentation has windows of Qt Quick.
        MessengerFixture fixture;
        QMainWindow host;
        auto *field = new QLineEdit(&host);
        host.setCentralWidget(field);
        host.resize(900, 700);
        const QShortcut save(QKeySequence(u"Ctrl+S"_s), &host);
        QSignalSpy saved(&save, &QShortcut::activated);
        const QShortcut letter(QKeySequence(u"G"_s), &host);
        QSignalSpy taken(&letter, &QShortcut::activated);
        Tolvane::setPresentation(Tolvane::Presentation::panel, &host);
        host.show();
        host.activateWindow();
        field->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&host));
        fixture.loadSettings();
        TolvaneViewController::present();
        const auto hasFocus = [&](bool inPanel) {
            const QWindow *focused = QGuiApplication::focusWindow();
            return focused && (focused->parent() == host.windowHandle()) == inPanel;
        };
        QTRY_VERIFY(hasFocus(true));
        QPointer<QWindow> panel = QGuiApplication::focusWindow();
        QTest::keyClick(panel, Qt::Key_S, Qt::ControlModifier);
        QTest::keyClick(panel, Qt::Key_G);
        QCOMPARE(saved.count() + taken.count(), 2);
        for (const auto modifiers : {Qt::NoModifier, Qt::ControlModifier}) {
            const Qt::Key key = modifiers ? Qt::Key_Tab : Qt::Key_F6;
            QTest::keyClick(panel, key, modifiers);
            QTRY_VERIFY(hasFocus(false) && field->hasFocus());
            QTest::keyClick(host.windowHandle(), key, modifiers);
            QTRY_VERIFY(hasFocus(true));
        }
        Tolvane::openNewConversation({});
        QTest::keyClick(panel, Qt::Key_G); // Is written.
        QQuickItem *content = static_cast<QQuickWindow *>(panel.data())->contentItem();
        QTRY_VERIFY(MessengerFixture::find(content, u"g"_s));
        QCOMPARE(taken.count(), 1);
        QTest::keyClick(panel, Qt::Key_Escape);
        QTest::keyClick(panel, Qt::Key_Escape);
        QTRY_VERIFY(!panel);
    }
};

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    EmbeddingTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_embedding.moc"
