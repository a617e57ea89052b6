// SPDX-License-Identifier: MIT
#include "tour.h"

#include "testing/ui/uirobot.h"

#include <QtCore/QDir>
#include <QtGui/QGuiApplication>
#include <QtGui/QPalette>
#include <QtQuick/QQuickWindow>

#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

struct Visit
{
    const char *name;
    QSize windowSize;
    bool isDark;
    /// Opens and closes the messenger with the keyboard instead of the pointer.
    bool usesKeyboard;
    /// The last message of the conversation to write in; empty to only read one.
    const char *conversation;
};

constexpr Visit visits[] = {
    {"portrait-light", {412, 860}, false, false, "Here is your label"},
    {"portrait-dark", {412, 860}, true, true, "All three fit"},
    // With room for a panel over the shop.
    {"landscape-light", {1180, 760}, false, false, ""},
    {"landscape-dark", {860, 540}, true, true, ""},
    {"small-light", {320, 480}, false, false, ""},
    {"large-dark", {1600, 900}, true, true, ""},
};

void setAppearance(bool isDark)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(isDark ? 0x16181d : 0xf4f4f4));
    palette.setColor(QPalette::WindowText, QColor(isDark ? Qt::white : Qt::black));
    QGuiApplication::setPalette(palette);
}

class Tour
{
public:
    Tour(QQuickWindow &window, const TourOptions &options)
        : m_window(window)
        , m_folder(options.folder)
        , m_hasPush(options.hasPush)
        , m_robot(window)
    {
    }

    void run(const Visit &visit)
    {
        m_visit = QLatin1String(visit.name);
        m_number = 0;
        setAppearance(visit.isDark);
        m_window.resize(visit.windowSize);
        m_robot.find(QAccessible::Button, u"Help"_s);
        saveScreenshot(u"shop"_s);
        openMessenger(visit.usesKeyboard);
        firstRow();
        saveScreenshot(u"list"_s);
        if (*visit.conversation)
            writeIn(QLatin1String(visit.conversation));
        else
            readConversation();
        collapseHeader();
        pullToRefresh();
        closeMessenger(visit.usesKeyboard);
    }

private:
    void saveScreenshot(const QString &name)
    {
        m_robot.waitForAnimations();
        const QString file = u"%1/%2-%3-%4.png"_s.arg(m_folder, m_visit).arg(++m_number).arg(name);
        if (!m_window.grabWindow().save(file))
            throw std::runtime_error("cannot write " + file.toStdString());
        std::printf("%s\n", qPrintable(file));
        std::fflush(stdout);
    }

    void openMessenger(bool usesKeyboard)
    {
        if (std::exchange(m_hasPush, false)) {
            const QRect banner = m_robot.find(QAccessible::AlertMessage);
            saveScreenshot(u"banner"_s);
            m_robot.click(banner);
            const QRect back = m_robot.find(QAccessible::Button, u"Back"_s);
            saveScreenshot(u"tapped"_s);
            m_robot.click(back);
        } else if (usesKeyboard) {
            m_robot.press(Qt::Key_Tab);
            m_robot.press(Qt::Key_Return);
        } else {
            m_robot.click(m_robot.find(QAccessible::Button, u"Help"_s));
        }
    }

    QRect firstRow() { return m_robot.find(QAccessible::ListItem); }

    void readConversation()
    {
        m_robot.click(firstRow());
        const QRect back = m_robot.find(QAccessible::Button, u"Back"_s);
        saveScreenshot(u"conversation"_s);
        m_robot.click(back);
    }

    void writeIn(const QString &lastMessage)
    {
        m_robot.click(m_robot.find(QAccessible::ListItem, lastMessage));
        m_robot.find(QAccessible::EditableText); // It has the focus.
        saveScreenshot(u"conversation"_s);
        m_robot.type(u"When are you open?"_s);
        saveScreenshot(u"written"_s);
        m_robot.press(Qt::Key_Return, Qt::ControlModifier);
        m_robot.find(QAccessible::ListItem, u"Mon, Tue"_s);
        saveScreenshot(u"answered"_s);
        m_robot.click(m_robot.find(QAccessible::Button, u"Picture "_s));
        m_robot.find(QAccessible::Graphic, u"Picture"_s);
        saveScreenshot(u"photo"_s);
        m_robot.press(Qt::Key_Escape);
        m_robot.waitForAnimations();
        m_robot.press(Qt::Key_Escape);
        m_robot.waitForAnimations();
    }

    void collapseHeader()
    {
        const QRect before = firstRow();
        m_robot.turnWheel(-3, before);
        m_robot.waitForAnimations();
        if (firstRow() == before)
            throw std::runtime_error("the wheel does not scroll the list");
        saveScreenshot(u"collapsed"_s);
    }

    void pullToRefresh()
    {
        m_robot.turnWheel(5, firstRow());
        m_robot.waitForAnimations();
        m_robot.drag(m_robot.find(QAccessible::Heading, u"Your messages"_s).center(), {0, 180});
        saveScreenshot(u"pulled"_s);
        m_robot.release();
        m_robot.waitForAnimations();
        firstRow();
    }

    void closeMessenger(bool usesKeyboard)
    {
        const QRect button = m_robot.find(QAccessible::Button, u"Close"_s);
        if (usesKeyboard)
            m_robot.press(Qt::Key_Escape);
        else
            m_robot.click(button);
        m_robot.waitForAnimations();
    }

    QQuickWindow &m_window;
    const QString m_folder;
    bool m_hasPush;
    tolvane::test::UiRobot m_robot;
    QString m_visit;
    int m_number = 0;
};

} // namespace

int takeTour(QQuickWindow &window, const TourOptions &options)
{
    try {
        if (!QDir().mkpath(options.folder))
            throw std::runtime_error("cannot create " + options.folder.toStdString());
        Tour tour(window, options);
        for (const Visit &visit : visits) {
            tour.run(visit);
            if (options.isBrief)
                break;
        }
        return EXIT_SUCCESS;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "The tour failed: %s\n", error.what());
        const QString file = options.folder + u"/failure.png"_s;
        if (window.grabWindow().save(file))
            std::fprintf(stderr, "The last screenshot: %s\n", qPrintable(file));
        return EXIT_FAILURE;
    }
}
