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

struct Look
{
    const char *name;
    QSize size;
    bool isDark;
    /// What a pointer does else, keys do.
    bool byKeys;
    /// Of the last message of the conversation that is written in; empty when none is.
    const char *talk;
};

constexpr Look looks[] = {
    {"portrait-light", {412, 860}, false, false, "Here is your label"},
    {"portrait-dark", {412, 860}, true, true, "All three fit"},
    {"landscape-light", {860, 412}, false, true, ""},
    {"landscape-dark", {860, 412}, true, false, ""},
    {"small-light", {320, 480}, false, false, ""},
    {"large-dark", {1280, 800}, true, true, ""},
};

void setAppearance(bool isDark)
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(isDark ? 0x16181d : 0xf4f4f4));
    palette.setColor(QPalette::WindowText, QColor(isDark ? Qt::white : Qt::black));
    QGuiApplication::setPalette(palette);
}

class Guide
{
public:
    Guide(QQuickWindow &window, const Tour &tour)
        : m_window(window)
        , m_folder(tour.folder)
        , m_hasPush(tour.hasPush)
        , m_robot(window)
    {
    }

    void visit(const Look &look)
    {
        m_look = QLatin1String(look.name);
        m_number = 0;
        setAppearance(look.isDark);
        m_window.resize(look.size);
        m_robot.find(QAccessible::Button, u"Help"_s);
        take(u"shop"_s);
        // The first picture of the messenger is opened by a push, where there is one.
        if (std::exchange(m_hasPush, false))
            answerPush();
        else if (look.byKeys)
            openByKeys();
        else
            m_robot.click(m_robot.find(QAccessible::Button, u"Help"_s));
        seeList();
        if (*look.talk)
            talk(QLatin1String(look.talk));
        else
            readConversation();
        collapse();
        pull();
        close(look.byKeys);
    }

private:
    void take(const QString &name)
    {
        m_robot.waitForAnimations();
        const QString file = u"%1/%2-%3-%4.png"_s.arg(m_folder, m_look).arg(++m_number).arg(name);
        if (!m_window.grabWindow().save(file))
            throw std::runtime_error("no picture could be written to " + file.toStdString());
        std::printf("%s\n", qPrintable(file));
        std::fflush(stdout);
    }

    void answerPush()
    {
        const QRect banner = m_robot.find(QAccessible::AlertMessage);
        take(u"banner"_s);
        m_robot.click(banner);
    }

    void openByKeys()
    {
        m_robot.press(Qt::Key_Tab);
        m_robot.press(Qt::Key_Return);
    }

    QRect firstRow() { return m_robot.find(QAccessible::ListItem); }

    void seeList()
    {
        firstRow();
        take(u"list"_s);
    }

    void collapse()
    {
        const QRect before = firstRow();
        m_robot.turnWheel(-3);
        m_robot.waitForAnimations();
        if (firstRow() == before)
            throw std::runtime_error("the list did not move");
        take(u"collapsed"_s);
    }

    void readConversation()
    {
        m_robot.click(firstRow());
        const QRect back = m_robot.find(QAccessible::Button, u"Back"_s);
        take(u"conversation"_s);
        m_robot.click(back);
    }

    void talk(const QString &lastMessage)
    {
        m_robot.click(m_robot.find(QAccessible::ListItem, lastMessage));
        // The focus is in what is written.
        m_robot.find(QAccessible::EditableText);
        take(u"conversation"_s);
        m_robot.type(u"When are you open?"_s);
        take(u"written"_s);
        m_robot.press(Qt::Key_Return, Qt::ControlModifier);
        m_robot.find(QAccessible::ListItem, u"Mon, Tue"_s);
        take(u"answered"_s);
        m_robot.click(m_robot.find(QAccessible::Button, u"Picture "_s));
        m_robot.find(QAccessible::Graphic, u"Picture"_s);
        take(u"photo"_s);
        m_robot.press(Qt::Key_Escape);
        m_robot.waitForAnimations();
        m_robot.press(Qt::Key_Escape);
        m_robot.waitForAnimations();
    }

    void pull()
    {
        m_robot.turnWheel(5);
        m_robot.waitForAnimations();
        m_robot.drag(m_robot.find(QAccessible::Heading, u"Your messages"_s).center(), {0, 180});
        take(u"pulled"_s);
        m_robot.release();
        m_robot.waitForAnimations();
        firstRow();
    }

    void close(bool byKeys)
    {
        const QRect button = m_robot.find(QAccessible::Button, u"Close"_s);
        if (byKeys)
            m_robot.press(Qt::Key_Escape);
        else
            m_robot.click(button);
        m_robot.waitForAnimations();
    }

    QQuickWindow &m_window;
    const QString m_folder;
    bool m_hasPush;
    tolvane::test::UiRobot m_robot;
    QString m_look;
    int m_number = 0;
};

} // namespace

int takeTour(QQuickWindow &window, const Tour &tour)
{
    try {
        if (!QDir().mkpath(tour.folder))
            throw std::runtime_error("no folder " + tour.folder.toStdString());
        Guide guide(window, tour);
        for (const Look &look : looks) {
            guide.visit(look);
            if (tour.isBrief)
                break;
        }
        return EXIT_SUCCESS;
    } catch (const std::runtime_error &error) {
        std::fprintf(stderr, "The tour has ended early: %s\n", error.what());
        const QString file = tour.folder + u"/ended-here.png"_s;
        if (window.grabWindow().save(file))
            std::fprintf(stderr, "What was to be seen: %s\n", qPrintable(file));
        return EXIT_FAILURE;
    }
}
