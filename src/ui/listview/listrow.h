// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QVariant>
#include <QtCore/QVariantAnimation>
#include <QtQuick/QQuickItem>

#include <functional>
#include <memory>
#include <optional>

namespace tolvane {

/// Its own signal may be what leads to the end of an item: it goes with the next turn of the event
/// loop.
struct DeleteItemLater
{
    void operator()(QQuickItem *item) const;
};

using ItemPointer = std::unique_ptr<QQuickItem, DeleteItemLater>;

/// The item of a row while it is there, and how it comes and goes: in 0.3 seconds from a place of
/// its own height below, out to one above, and fading. Main thread.
class ListRow
{
public:
    /// @param item goes with the row
    /// @param moved called for each step of a movement
    ListRow(ItemPointer item, std::function<void()> moved);
    ~ListRow();
    ListRow(const ListRow &) = delete;
    ListRow &operator=(const ListRow &) = delete;

    QQuickItem *item() const { return m_item.get(); }
    /// The row itself is at its end.
    ItemPointer takeItem();
    double height() const { return m_item->implicitHeight(); }

    /// Puts it where it belongs, from the top of the window of the list, but for its movement.
    void place(double y);
    /// Where it is now, beside where it belongs.
    double shift() const { return m_shift; }

    void enter();
    /// From somewhere else to where it belongs.
    void displace(double from);
    /// Upwards, unless its `leavesDownwards` says otherwise.
    void leave();
    bool isMoving() const { return m_motion.state() == QAbstractAnimation::Running; }

    /// Where it was before rows came or went.
    std::optional<double> before;
    /// As what its item was built; invalid for one that is of no further use.
    QVariant kind;

private:
    struct Look
    {
        double shift;
        double opacity;
    };

    void move(const Look &from, const Look &to);
    void step(double progress);

    ItemPointer m_item;
    std::function<void()> m_moved;
    QVariantAnimation m_motion;
    Look m_from{};
    Look m_to{};
    double m_shift = 0;
};

} // namespace tolvane
