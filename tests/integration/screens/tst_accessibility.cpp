// SPDX-License-Identifier: MIT
// Every screen as screen readers and keyboard users get it.
#include "testing/ui/accessibletree.h"
#include "testing/ui/screens.h"

#include <QtCore/QHash>
#include <QtCore/QMetaEnum>
#include <QtCore/QSet>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

/// Buttons can have the focus unless they are disabled; Qt reports that of labels, too.
bool isControl(const AccessibleNode &node)
{
    static const QSet<QAccessible::Role> roles = {QAccessible::EditableText, QAccessible::MenuItem,
                                                  QAccessible::ListItem, QAccessible::Link};
    return roles.contains(node.role) || (node.isFocusable && node.role != QAccessible::StaticText);
}

bool hasRoleAndName(const AccessibleNode &node)
{
    static const QSet<QAccessible::Role> vague = {QAccessible::NoRole, QAccessible::Client,
                                                  QAccessible::Pane, QAccessible::Grouping,
                                                  QAccessible::Whitespace};
    return !vague.contains(node.role) && !node.name.trimmed().isEmpty();
}

QString described(const AccessibleNode &node)
{
    static const auto roles = QMetaEnum::fromType<QAccessible::Role>();
    return u"%1 \"%2\" at %3,%4"_s
        .arg(QLatin1String(roles.valueToKey(node.role)), node.name.left(40))
        .arg(node.rect.x())
        .arg(node.rect.y());
}

/// Whether a reader sees it before the other: above it, before it in the same line, or around it.
bool isBefore(const AccessibleNode &one, const AccessibleNode &other, bool isRightToLeft)
{
    if (one.rect.contains(other.rect) || one.rect.bottom() <= other.rect.top())
        return true;
    if (other.rect.contains(one.rect) || other.rect.bottom() <= one.rect.top())
        return false;
    return isRightToLeft ? one.rect.right() > other.rect.right()
                         : one.rect.left() < other.rect.left();
}

/// A screen, used by keyboard.
struct KeyboardFixture : Screens
{
    KeyboardFixture(const Appearance &appearance, const QString &screen)
        : Screens(appearance)
    {
        show(screen);
        QAccessible::setActive(true);
        QCoreApplication::processEvents();
        all = accessibleTree(host);
    }

    /// False for what has been scrolled out of the window.
    bool isInWindow(const AccessibleNode &node) const
    {
        return node.rect.intersects(QRect(host.position(), host.size()));
    }

    AccessibleNode press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&host, Qt::Key(key), modifiers);
        // An element outside the window is scrolled into it first.
        AccessibleNode focus;
        int equal = 0;
        std::ignore = QTest::qWaitFor(
            [&] {
                const QRect before = std::exchange(focus, focused()).rect;
                equal = focus.rect == before ? equal + 1 : 0;
                return focus.id != 0 && equal > 2 && isInWindow(focus);
            },
            3000);
        return focus;
    }

    AccessibleNode focused()
    {
        const AccessibleNode focus = focusedNode(host);
        if (focus.id)
            reached += focus.id;
        return focus;
    }

    /// The stops of one key, until it is back at the first.
    QList<AccessibleNode> cycle(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QList<AccessibleNode> stops;
        constexpr int limit = 40;
        for (int count = 0; count < limit; ++count) {
            const AccessibleNode stop = press(key, modifiers);
            if (!stops.isEmpty() && stop.id == stops.constFirst().id)
                return stops;
            stops += stop;
        }
        // The key leads nowhere else from some stop on.
        return stops.last(1);
    }

    bool isInList(const AccessibleNode &node) const
    {
        const auto found = std::ranges::find(all, node.id, &AccessibleNode::id);
        return found != all.end() && found->parent >= 0 &&
               all.at(found->parent).role == QAccessible::List;
    }

    QList<AccessibleNode> all;
    /// Every element that had the focus so far.
    QSet<QAccessible::Id> reached;
};

} // namespace

class AccessibilityTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { Appearance().apply(); }

    void everyControlIsNamedAndReached_data()
    {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("language");
        QTest::addColumn<Form>("form");
        const auto row = [](const char *screen, const char *language, Form form = Form::full) {
            QTest::addRow("%s, %s, %d", screen, language, int(form))
                << QString::fromLatin1(screen) << QString::fromLatin1(language) << form;
        };
        for (const Screens::Screen &screen : Screens::all())
            row(screen.name, "en");
        for (const char *screen : {"home-list", "conversation", "composer-attachments", "viewer"})
            row(screen, "ar");
        for (const char *screen : {"home-list", "conversation-new"}) {
            row(screen, "en", Form::panel);
            row(screen, "en", Form::embedded);
        }
    }

    void everyControlIsNamedAndReached()
    {
        QFETCH(const QString, screen);
        QFETCH(const QString, language);
        QFETCH(const Form, form);
        const int width = form == Form::full ? 480 : 1000;
        KeyboardFixture fixture({.size = {width, 1000}, .language = language, .form = form},
                                screen);
        if (form == Form::embedded)
            fixture.messenger()->forceActiveFocus();
        fixture.focused();
        QList<AccessibleNode> stops = fixture.cycle(Qt::Key_Tab);
        if (form != Form::full) // The host's field, which is not accessible, belongs to the cycle.
            QVERIFY(stops.removeIf([](const AccessibleNode &stop) { return !stop.id; }) > 0);
        QSet<QAccessible::Id> back;
        for (const AccessibleNode &stop : fixture.cycle(Qt::Key_Backtab, Qt::ShiftModifier))
            back += stop.id;

        QStringList path;
        QStringList faults = orderFaults(stops, language == u"ar"_s) + listFaults(fixture);
        for (const AccessibleNode &stop : stops) {
            if (!stop.id)
                faults += u"no element has the focus"_s;
            else if (!back.contains(stop.id))
                faults += u"not reached backwards: "_s + described(stop);
            else
                path += described(stop);
            if (stop.role == QAccessible::List || fixture.isInList(stop))
                walkList(fixture, stop);
        }
        // Qt 6.4 does not report that an element is disabled, as all are until the conversation
        // has loaded.
        const bool isLoading = screen == u"conversation-loading"_s;
        QVERIFY(std::ranges::count_if(fixture.all, hasRoleAndName) > 1);
        for (const AccessibleNode &node : reachable(fixture)) {
            if (!hasRoleAndName(node))
                faults += u"without role or name: "_s + described(node);
            if (!isLoading && !isReached(fixture, node))
                faults += u"not reached: "_s + described(node);
        }
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n') +
                                              u"\nreached in order: "_s + path.join(u", "_s)));
    }

private:
    /// The controls in the window; an open menu receives all keys.
    static QList<AccessibleNode> reachable(const KeyboardFixture &fixture)
    {
        const bool hasMenu = std::ranges::any_of(
            fixture.all, [](const auto &node) { return node.role == QAccessible::PopupMenu; });
        QList<AccessibleNode> controls;
        for (const AccessibleNode &node : fixture.all) {
            if (fixture.isInWindow(node) && isControl(node) &&
                (!hasMenu || node.role == QAccessible::MenuItem))
                controls += node;
        }
        return controls;
    }

    static QStringList orderFaults(QList<AccessibleNode> stops, bool isRightToLeft)
    {
        const auto before = [&](const AccessibleNode &a, const AccessibleNode &b) {
            return isBefore(a, b, isRightToLeft);
        };
        // A list passes the focus on to its current row, wherever that is.
        stops.removeIf([](const auto &stop) { return stop.role == QAccessible::ListItem; });
        std::ranges::rotate(stops, std::ranges::min_element(stops, before));
        QStringList faults;
        for (qsizetype index = 1; index < stops.size(); ++index) {
            if (!before(stops.at(index - 1), stops.at(index)))
                faults += u"%1 comes before %2"_s.arg(described(stops.at(index - 1)),
                                                      described(stops.at(index)));
        }
        return faults;
    }

    static QStringList listFaults(const KeyboardFixture &fixture)
    {
        QStringList faults;
        QHash<int, AccessibleNode> previous;
        for (const AccessibleNode &node : fixture.all) {
            const bool isRow =
                node.role == QAccessible::ListItem || node.role == QAccessible::Heading;
            if (!isRow || !fixture.isInList(node))
                continue;
            const AccessibleNode before = previous.value(node.parent, node);
            if (before.rect.top() > node.rect.top())
                faults += u"%1 is read before %2"_s.arg(described(before), described(node));
            previous[node.parent] = node;
        }
        return faults;
    }

    /// Uses the arrow keys in each direction, since lists may be vertical or horizontal.
    static void walkList(KeyboardFixture &fixture, const AccessibleNode &list)
    {
        constexpr int limit = 30;
        for (int count = 0; count < limit && fixture.focused().id != list.id; ++count)
            fixture.press(Qt::Key_Tab);
        for (const int key :
             {Qt::Key_Home, Qt::Key_Down, Qt::Key_Up, Qt::Key_Left, Qt::Key_Right}) {
            QAccessible::Id before = 0;
            for (int count = 0; count < limit; ++count) {
                const AccessibleNode focus = fixture.press(key);
                if (focus.id == before)
                    break;
                before = focus.id;
            }
        }
    }

    /// True if it or an element around it had the focus, which then has its keys; a list may pass
    /// the focus on to its rows.
    static bool isReached(const KeyboardFixture &fixture, const AccessibleNode &node)
    {
        const auto isRowOfNode = [&](const AccessibleNode &each) {
            return each.parent >= 0 && fixture.all.at(each.parent).id == node.id &&
                   fixture.reached.contains(each.id);
        };
        if (node.role == QAccessible::List && std::ranges::any_of(fixture.all, isRowOfNode))
            return true;
        for (AccessibleNode each = node;; each = fixture.all.at(each.parent)) {
            if (fixture.reached.contains(each.id))
                return true;
            if (each.parent < 0 || each.role == QAccessible::List)
                return false;
        }
    }
};

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
