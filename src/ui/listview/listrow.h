// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QVariant>
#include <QtCore/QVariantAnimation>
#include <QtQuick/QQuickItem>

#include <functional>
#include <memory>
#include <optional>

namespace tolvane {

/// Deferred: the item may be emitting the signal that removes it.
struct TOLVANE_VIEWS_AUTOTEST_EXPORT DeleteItemLater
{
    void operator()(QQuickItem *item) const;
};

using ItemPointer = std::unique_ptr<QQuickItem, DeleteItemLater>;

/// The item of a visible row, with its animations of 0.3 seconds: it enters from its own height
/// below its position and leaves to its own height above it, while it fades. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ListRow
{
public:
    /// @param item is destroyed with the row
    /// @param moved called for each step of an animation
    ListRow(ItemPointer item, std::function<void()> moved);
    ~ListRow();
    ListRow(const ListRow &) = delete;
    ListRow &operator=(const ListRow &) = delete;

    QQuickItem *item() const { return m_item.get(); }
    /// Releases the item. The row must not be used afterwards.
    ItemPointer takeItem();
    double height() const { return m_item->implicitHeight(); }

    /// Sets the position in the parent of the rows. An animation adds its shift to it.
    void place(double y);
    /// The present distance from the position.
    double shift() const { return m_shift; }

    void enter();
    /// Animates from another position to the current one.
    void displace(double from);
    /// Animates upwards, unless `leavesDownwards` of the item is true.
    void leave();
    bool isMoving() const { return m_animation.state() == QAbstractAnimation::Running; }

    /// The position before rows were inserted or removed.
    std::optional<double> previousPosition;
    /// The kind that the item was created for; invalid if the item cannot be reused.
    QVariant kind;

private:
    struct VisualState
    {
        double shift;
        double opacity;
    };

    void move(const VisualState &from, const VisualState &to);
    void step(double progress);

    ItemPointer m_item;
    std::function<void()> m_moved;
    QVariantAnimation m_animation;
    VisualState m_from{};
    VisualState m_to{};
    double m_shift = 0;
};

} // namespace tolvane
