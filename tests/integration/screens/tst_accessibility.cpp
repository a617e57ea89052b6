// SPDX-License-Identifier: MIT
// Every screen as people have it who hear it and go through it by keyboard.
#include "testing/ui/atspi.h"
#include "testing/ui/screens.h"

#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

/// Buttons can have the focus unless they are disabled; of labels Qt says so, too.
bool isControl(const Heard &heard)
{
    static const QStringList roles = {u"text"_s, u"menu item"_s, u"list item"_s, u"link"_s};
    return roles.contains(heard.role) || (heard.isFocusable() && heard.role != u"label"_s);
}

bool saysWhatItIs(const Heard &heard)
{
    static const QStringList vague = {QString(), u"unknown"_s, u"invalid"_s, u"filler"_s,
                                      u"panel"_s};
    return !vague.contains(heard.role) && !heard.name.trimmed().isEmpty();
}

QString described(const Heard &heard)
{
    return u"%1 \"%2\" at %3,%4"_s.arg(heard.role, heard.name.left(40))
        .arg(heard.place.x())
        .arg(heard.place.y());
}

/// Whether the eye comes to it before the other: above it, before it in the same line, or around.
bool isBefore(const Heard &one, const Heard &other, bool isRightToLeft)
{
    if (one.place.contains(other.place) || one.place.bottom() <= other.place.top())
        return true;
    if (other.place.contains(one.place) || other.place.bottom() <= one.place.top())
        return false;
    return isRightToLeft ? one.place.right() > other.place.right()
                         : one.place.left() < other.place.left();
}

/// A screen, and who goes through it.
struct Visit : Screens
{
    Visit(const Appearance &look, const QString &screen)
        : Screens(look)
    {
        show(screen);
        all = atSpi.listen();
    }

    /// What has scrolled away is out of reach.
    bool isInSight(const Heard &heard) const
    {
        return heard.place.intersects(QRect(host.position(), host.size()));
    }

    Heard press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&host, Qt::Key(key), modifiers);
        // What was out of sight scrolls into it first.
        Heard focus;
        std::ignore = QTest::qWaitFor([&] { return !(focus = focused()).path.isEmpty(); }, 1000);
        return focus;
    }

    Heard focused()
    {
        const Heard focus = atSpi.focus();
        if (!focus.path.isEmpty() && !reached.contains(focus.path))
            reached += focus.path;
        return focus;
    }

    /// Where one press after the other leads, until it begins again.
    QList<Heard> round(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QList<Heard> stops;
        constexpr int most = 40;
        for (int count = 0; count < most; ++count) {
            const Heard stop = press(key, modifiers);
            if (!stops.isEmpty() && stop.path == stops.constFirst().path)
                return stops;
            stops += stop;
        }
        // Somewhere it goes no further.
        return stops.last(1);
    }

    QString roleAround(const Heard &heard) const
    {
        const auto found =
            std::ranges::find(all, heard.path, [](const Heard &each) { return each.path; });
        return found == all.end() || found->parent < 0 ? QString() : all.at(found->parent).role;
    }

    AtSpi atSpi;
    QList<Heard> all;
    /// All that had the focus so far.
    QStringList reached;
};

} // namespace

class AccessibilityTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // Qt looks up once and for all where an item's name and role are, the first time that
        // somebody asks for one: too early where no QML has been loaded yet.
        QQuickView window;
        QQmlComponent component(window.engine());
        component.setData("import QtQuick\nItem { Accessible.name: 'item' }", {});
        const std::unique_ptr<QObject> item(component.create());
        QVERIFY2(item, qPrintable(component.errorString()));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        AtSpi atSpi;
        QVERIFY2(atSpi.problem().isEmpty(), qPrintable(atSpi.problem()));
    }

    void cleanup() { Appearance().apply(); }

    void everyControlSaysWhatItIs_data() { Screens::addRows(); }

    void everyControlSaysWhatItIs()
    {
        QFETCH(const QString, screen);
        Visit visit(Appearance{}, screen);
        QStringList faults;
        qsizetype said = 0;
        for (const Heard &heard : visit.all) {
            said += saysWhatItIs(heard);
            if (visit.isInSight(heard) && isControl(heard) && !saysWhatItIs(heard))
                faults += described(heard);
        }
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n')));
        QVERIFY2(said > 1, "nothing is said");
    }

    void everyControlIsReached_data()
    {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("language");
        const auto row = [](const char *screen, const char *language) {
            QTest::addRow("%s, %s", screen, language)
                << QString::fromLatin1(screen) << QString::fromLatin1(language);
        };
        for (const Screens::Screen &screen : Screens::all())
            row(screen.name, "en");
        for (const char *screen : {"home-list", "conversation", "composer-attachments", "viewer"})
            row(screen, "ar");
    }

    void everyControlIsReached()
    {
        QFETCH(const QString, screen);
        QFETCH(const QString, language);
        Visit visit({.size = {480, 1000}, .language = language}, screen);
        visit.focused();
        const QList<Heard> stops = visit.round(Qt::Key_Tab);
        QStringList back;
        for (const Heard &stop : visit.round(Qt::Key_Backtab, Qt::ShiftModifier))
            back += stop.path;

        QStringList way;
        QStringList faults = orderFaults(stops, language == u"ar"_s);
        for (const Heard &stop : stops) {
            if (stop.path.isEmpty())
                faults += u"the focus is nowhere"_s;
            else if (!back.contains(stop.path))
                faults += u"not reached backwards: "_s + described(stop);
            else
                way += described(stop);
            if (stop.role == u"list"_s || visit.roleAround(stop) == u"list"_s)
                goThrough(visit, stop);
        }
        // Qt 6.4 tells nobody that something is disabled, as all is until the conversation is
        // there.
        const bool isWaiting = screen == u"conversation-loading"_s;
        for (const Heard &heard : reachable(visit)) {
            if (!isWaiting && !isReached(visit, heard))
                faults += u"not reached: "_s + described(heard);
        }
        QVERIFY2(faults.isEmpty(),
                 qPrintable(u'\n' + faults.join(u'\n') + u"\non the way "_s + way.join(u", "_s)));
    }

private:
    /// The controls in sight; a menu that is open has the keys to itself.
    static QList<Heard> reachable(const Visit &visit)
    {
        const auto isMenu = [](const Heard &heard) { return heard.role == u"popup menu"_s; };
        const bool hasMenu = std::ranges::any_of(visit.all, isMenu);
        QList<Heard> controls;
        for (const Heard &heard : visit.all) {
            if (visit.isInSight(heard) && isControl(heard) &&
                (!hasMenu || heard.role == u"menu item"_s))
                controls += heard;
        }
        return controls;
    }

    static QStringList orderFaults(QList<Heard> stops, bool isRightToLeft)
    {
        const auto first = std::ranges::min_element(
            stops, [&](const Heard &a, const Heard &b) { return isBefore(a, b, isRightToLeft); });
        std::ranges::rotate(stops, first);
        QStringList faults;
        for (qsizetype index = 1; index < stops.size(); ++index) {
            if (!isBefore(stops.at(index - 1), stops.at(index), isRightToLeft))
                faults += u"%1 comes before %2"_s.arg(described(stops.at(index - 1)),
                                                      described(stops.at(index)));
        }
        return faults;
    }

    /// By arrow keys, whichever way the list goes.
    static void goThrough(Visit &visit, const Heard &list)
    {
        constexpr int most = 30;
        for (int count = 0; count < most && visit.focused().path != list.path; ++count)
            visit.press(Qt::Key_Tab);
        for (const int key :
             {Qt::Key_Home, Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
            QString before;
            for (int count = 0; count < most; ++count) {
                const Heard focus = visit.press(key);
                if (focus.path == before)
                    break;
                before = focus.path;
            }
        }
    }

    /// Itself, or what it is a part of: there its keys are. A list may hand on to its rows.
    static bool isReached(const Visit &visit, const Heard &heard)
    {
        if (heard.role == u"list"_s) {
            return std::ranges::any_of(visit.all,
                                       [&](const Heard &each) {
                                           return each.parent >= 0 &&
                                                  visit.all.at(each.parent).path == heard.path &&
                                                  visit.reached.contains(each.path);
                                       }) ||
                   visit.reached.contains(heard.path);
        }
        for (Heard each = heard;; each = visit.all.at(each.parent)) {
            if (visit.reached.contains(each.path))
                return true;
            if (each.parent < 0 || each.role == u"list"_s)
                return false;
        }
    }
};

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
