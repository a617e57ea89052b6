// SPDX-License-Identifier: MIT
#include "ui/listview/readingorder.h"

#include <algorithm>

namespace tolvane {

ReadingOrder::ReadingOrder(QObject *parent)
    : QObject(parent)
{
    QAccessible::installActivationObserver(this);
}

ReadingOrder::~ReadingOrder()
{
    QAccessible::removeActivationObserver(this);
}

void ReadingOrder::setContent(QQuickItem *content)
{
    if (m_content == content)
        return;
    if (m_content)
        disconnect(m_content, nullptr, this, nullptr);
    m_content = content;
    if (content) {
        connect(content, &QQuickItem::childrenChanged, this, &ReadingOrder::sortLater);
        // Scrolling places rows again.
        connect(content, &QQuickItem::yChanged, this, &ReadingOrder::sortLater);
        sortLater();
    }
    Q_EMIT contentChanged();
}

void ReadingOrder::accessibilityActiveChanged(bool isActive)
{
    m_isActive = isActive;
    sortLater();
}

void ReadingOrder::sortLater()
{
    if (m_isWaiting || !m_isActive)
        return;
    m_isWaiting = true;
    QMetaObject::invokeMethod(this, &ReadingOrder::sort, Qt::QueuedConnection);
}

void ReadingOrder::sort()
{
    m_isWaiting = false;
    if (!m_content)
        return;
    QList<QQuickItem *> items = m_content->childItems();
    if (std::ranges::is_sorted(items, {}, &QQuickItem::y))
        return;
    std::ranges::stable_sort(items, {}, &QQuickItem::y);
    for (qsizetype at = 1; at < items.size(); ++at)
        items.at(at)->stackAfter(items.at(at - 1));
}

} // namespace tolvane
