// SPDX-License-Identifier: MIT
#include "ui/listview/listrow.h"

#include <utility>

namespace tolvane {

void DeleteItemLater::operator()(QQuickItem *item) const
{
    item->setVisible(false);
    item->setParentItem(nullptr);
    item->deleteLater();
}

ListRow::ListRow(ItemPointer item, std::function<void()> moved)
    : m_item(std::move(item))
    , m_moved(std::move(moved))
{
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setDuration(300);
    m_animation.setEasingCurve(QEasingCurve::InOutQuad);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, m_item.get(),
                     [this](const QVariant &progress) { step(progress.toDouble()); });
}

ListRow::~ListRow()
{
    m_animation.disconnect();
}

ItemPointer ListRow::takeItem()
{
    m_animation.disconnect();
    return std::move(m_item);
}

void ListRow::place(double y)
{
    m_item->setY(y + m_shift);
}

void ListRow::enter()
{
    move({.shift = height(), .opacity = 0}, {.shift = 0, .opacity = 1});
}

void ListRow::displace(double from)
{
    move({.shift = from, .opacity = m_item->opacity()}, {.shift = 0, .opacity = 1});
}

void ListRow::leave()
{
    const bool isDownwards = m_item->property("leavesDownwards").toBool();
    m_item->setEnabled(false);
    m_item->setZ(-1);
    move({.shift = m_shift, .opacity = m_item->opacity()},
         {.shift = isDownwards ? height() : -height(), .opacity = 0});
}

void ListRow::move(const VisualState &from, const VisualState &to)
{
    m_animation.stop();
    m_from = from;
    m_to = to;
    m_animation.start();
    step(0);
}

void ListRow::step(double progress)
{
    m_shift = m_from.shift + (m_to.shift - m_from.shift) * progress;
    m_item->setOpacity(m_from.opacity + (m_to.opacity - m_from.opacity) * progress);
    m_moved();
}

} // namespace tolvane
