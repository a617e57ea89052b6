// SPDX-License-Identifier: MIT
// A whole conversation in each form of the messenger, with the mouse alone and with the keyboard
// alone. With TOLVANE_PICTURES, a folder, it has all looks of its scale and renderer, and saves
// pictures.
#include "testing/ui/createitem.h"
#include "testing/ui/screens.h"
#include "testing/ui/uirobot.h"
#include "testing/waitfor.h"

#include <tolvane/messengerwidget.h>

#include <QtGui/QClipboard>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QPushButton>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

/// How the mouse's conversation is shown. The keyboard's has the opposite of each flag: together
/// the rows have each pair of values.
struct Case
{
    const char *name;
    Form form;
    bool isInWidgets;
    bool isDark;
    bool isArabic;
    bool isAtTwo;
    bool isSoftware;
};

constexpr Case cases[] = {
    {"full", Form::full, false, false, false, false, false},
    {"panel", Form::panel, false, false, true, false, false},
    {"embedded", Form::embedded, false, true, false, true, false},
    {"full-over-widgets", Form::full, true, false, true, true, true},
    {"panel-over-widgets", Form::panel, true, true, false, false, true},
    {"widget", Form::embedded, true, true, true, false, true},
};

const QString question = u"Is it on its way?"_s;
const QString reply = u"It left our house this morning, and the carrier has it by now."_s;

QString text(const QString &key)
{
    return platform().bundle->string(key);
}

/// The last text that screen readers were told to read, from Qt 6.8 on.
QString announced;

void keepAnnouncement([[maybe_unused]] QAccessibleEvent *event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    if (event->type() == QAccessible::Announcement)
        announced = static_cast<QAccessibleAnnouncementEvent *>(event)->message();
#endif
}

/// A host with a "Help" button, and a customer who uses the mouse alone or the keyboard alone.
struct Desk : Screens
{
    Desk(const Appearance &look, bool isInWidgets, bool byKeyboard)
        : Screens(look)
        , form(look.form)
        , usesKeyboard(byKeyboard)
    {
        announced.clear();
        QAccessible::installUpdateHandler(keepAnnouncement);
        loadSettings();
        Tolvane::refreshUnread();
        QString help = text(u"help_button"_s);
        if (isInWidgets) {
            auto *button = new QPushButton(help);
            QObject::connect(button, &QPushButton::clicked, &Tolvane::open);
            widgets.setCentralWidget(button);
            widgets.resize(look.size);
            if (form == Form::embedded) {
                auto *dock = new QDockWidget(&widgets);
                dock->setWidget(new MessengerWidget);
                widgets.addDockWidget(Qt::RightDockWidgetArea, dock);
            }
            widgets.show();
            widgets.activateWindow();
            window = widgets.windowHandle();
        } else {
            createItem(*host.engine(), "import Tolvane\nHelpButton { x: 440; y: 300; focus: true }",
                       {{u"parent"_s, QVariant::fromValue(host.contentItem())}})
                .release()
                ->setParent(host.contentItem());
            std::ignore = showHost();
            window = &host;
            help += u", "_s + text(u"accessibility_unread"_s);
        }
        robot.emplace(*window);
        if (form == Form::embedded)
            return;
        choose(QAccessible::Button, help);
        waitFor(u"the messenger"_s, [] { return Tolvane::isOpen(); });
        for (QWindow *each : QGuiApplication::allWindows()) {
            if (each->property("isMessenger").toBool() && each->isVisible())
                robot.emplace(*each);
        }
    }

    void converse()
    {
        choose(QAccessible::ListItem, u"Hello, my parcel"_s);
        write(robot->find(QAccessible::EditableText));
        robot->find(QAccessible::ListItem, question);
        MessageDto message = makeMessage(u"reply"_s, words::humanAgent);
        message.content = reply;
        ticket.messages += message;
        Tolvane::willPresentNotification(
            {{u"source"_s, u"tolvane"_s}, {u"message"_s, tolvane::json::dictionary(message)}});
        // Screen readers read it.
        waitFor(u"the announcement"_s, [this] {
            if constexpr (QT_VERSION >= QT_VERSION_CHECK(6, 8, 0))
                return announced.contains(reply);
            else
                return robot->canSee(QAccessible::AlertMessage, reply);
        });
        copy();
        save(u"conversation"_s);
        openPicture();
        save(u"picture"_s);
        leave();
        leave();
        save(u"list"_s);
        if (form != Form::embedded)
            close();
    }

    void save(const QString &name)
    {
        robot->waitForAnimations();
        const QString folder = qEnvironmentVariable("TOLVANE_PICTURES");
        const QString file =
            u"%1/%2-%3.png"_s.arg(folder, QLatin1String(QTest::currentDataTag()), name);
        if (!folder.isEmpty() && !window->screen()->grabWindow(window->winId()).save(file))
            throw std::runtime_error("cannot write " + file.toStdString());
    }

private:
    void choose(QAccessible::Role role, const QString &name)
    {
        const QRect rect = robot->find(role, name);
        if (!usesKeyboard)
            return robot->click(rect);
        robot->waitForAnimations();
        robot->moveFocus(Qt::Key_Tab, role, role == QAccessible::ListItem ? QString() : name);
        robot->moveFocus(Qt::Key_Down, role, name); // To a row of the list.
        robot->press(role == QAccessible::Button ? Qt::Key_Space : Qt::Key_Return);
    }

    void write(const QRect &editor)
    {
        if (usesKeyboard) {
            robot->type(question);
            return robot->press(Qt::Key_Return);
        }
        QGuiApplication::clipboard()->setText(question);
        robot->click(editor, Qt::RightButton);
        choose(QAccessible::MenuItem, text(u"edit_paste"_s));
        choose(QAccessible::Button, text(u"accessibility_send"_s));
    }

    void copy()
    {
        QGuiApplication::clipboard()->clear();
        robot->waitForAnimations();
        const QRect message = robot->find(QAccessible::ListItem, reply);
        const QPoint inText(message.center().x(), message.top() + 30);
        if (usesKeyboard) {
            robot->moveFocus(Qt::Key_Backtab, QAccessible::ListItem);
            robot->moveFocus(Qt::Key_Down, QAccessible::ListItem, reply);
            robot->press(Qt::Key_C, Qt::ControlModifier);
        } else {
            robot->drag(inText, {-60, 0});
            robot->release();
            robot->click(QRect(inText, QSize(1, 1)), Qt::RightButton);
            choose(QAccessible::MenuItem, text(u"edit_copy"_s));
        }
        waitFor(u"the copied text"_s, [] {
            const QString copied = QGuiApplication::clipboard()->text();
            return !copied.isEmpty() && (copied.contains(reply) || reply.contains(copied));
        });
    }

    void openPicture()
    {
        // The lowest of six.
        const QString picture =
            text(u"accessibility_attachment"_s).replace(u"%1"_s, u"4"_s).replace(u"%2"_s, u"6"_s);
        if (usesKeyboard) {
            robot->press(Qt::Key_PageUp);
            robot->waitForAnimations();
            robot->moveFocus(Qt::Key_Tab, QAccessible::Button, picture);
            robot->press(Qt::Key_Space);
        } else {
            const QRect row = robot->find(QAccessible::ListItem, reply);
            waitFor(picture, [&] {
                const bool isInSight = robot->canSee(QAccessible::Button, picture);
                robot->turnWheel(1, row); // At last out from below the bar.
                robot->waitForAnimations();
                return isInSight;
            });
            robot->click(robot->find(QAccessible::Button, picture));
        }
        robot->find(QAccessible::Graphic);
    }

    void leave()
    {
        const QRect back =
            robot->find(QAccessible::Button, platform().bundle->hostString(u"Back"_s));
        robot->waitForAnimations();
        if (usesKeyboard)
            robot->press(Qt::Key_Escape);
        else
            robot->click(back.translated(0, 2 * back.height()), Qt::BackButton);
        robot->waitForAnimations();
    }

    void close()
    {
        if (usesKeyboard)
            robot->press(Qt::Key_Escape);
        else
            choose(QAccessible::Button, text(u"accessibility_close"_s));
        waitFor(u"the messenger to close"_s, [] { return !Tolvane::isOpen(); });
    }

    const Form form;
    const bool usesKeyboard;
    QMainWindow widgets;
    QWindow *window = nullptr;
    std::optional<UiRobot> robot;
};

} // namespace

class FormsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Appearance().apply(); }

    void aWholeConversation_data()
    {
        QTest::addColumn<int>("row");
        const bool isAtTwo = qApp->devicePixelRatio() == 2;
        const bool isSoftware = qEnvironmentVariable("QT_QUICK_BACKEND") == u"software"_s;
        for (int row = 0; row < 8 * int(std::size(cases)); ++row) {
            const Case &shown = cases[row / 8];
            const bool byKeyboard = row & 1;
            const bool isDark = row & 2;
            const bool isArabic = row & 4;
            const int equal = (shown.isDark == isDark) + (shown.isArabic == isArabic) +
                              (shown.isAtTwo == isAtTwo) + (shown.isSoftware == isSoftware);
            if (equal == (byKeyboard ? 0 : 4) || !qEnvironmentVariableIsEmpty("TOLVANE_PICTURES"))
                QTest::addRow("%s-%s%s%s", shown.name, byKeyboard ? "keyboard" : "mouse",
                              isDark ? "-dark" : "", isArabic ? "-arabic" : "")
                    << row;
        }
    }

    void aWholeConversation()
    {
        QFETCH(const int, row);
        const Case &shown = cases[row / 8];
        try {
            Desk desk({.size = {1000, 760},
                       .language = row & 4 ? u"ar"_s : u"en"_s,
                       .isDark = bool(row & 2),
                       .form = shown.form},
                      shown.isInWidgets, row & 1);
            desk.converse();
        } catch (const std::exception &error) {
            QFAIL(error.what());
        }
    }
};

QTEST_MAIN(FormsTest)
#include "tst_forms.moc"
