// SPDX-License-Identifier: MIT
// The items of the rows: created, updated and reused.
#include "ui/listview/anchoredlist.h"

#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQml/qqmlinfo.h>

#include <algorithm>

namespace tolvane {

void AnchoredList::setProperties(QQuickItem &item, const QVariantMap &values)
{
    for (auto value = values.begin(); value != values.end(); ++value)
        item.setProperty(value.key().toUtf8().constData(), value.value());
}

/// Creates the item of the row, unless it exists. False if it has to wait for the next frame.
bool AnchoredList::provideRow(int row)
{
    constexpr int maxFrameCost = 14'000;
    if (rowAt(row))
        return true;
    const int cost = valueOf(m_costRole, row).toInt();
    if (m_spentCost > 0 && m_spentCost + cost > maxFrameCost) {
        // Queued: polishing within updatePolish() belongs to the same frame.
        QMetaObject::invokeMethod(this, &AnchoredList::polish, Qt::QueuedConnection);
        return false;
    }
    // Queued: a frame may call updatePolish() several times.
    if (m_spentCost == 0 && cost > 0)
        QMetaObject::invokeMethod(
            this, [this] { m_spentCost = 0; }, Qt::QueuedConnection);
    m_spentCost += cost;
    rowSlot(row) = createRow(row);
    return true;
}

std::unique_ptr<ListRow> &AnchoredList::rowSlot(int row)
{
    if (m_rows.empty())
        m_firstRow = row;
    for (; row < m_firstRow; --m_firstRow)
        m_rows.emplace_front();
    while (row >= m_firstRow + int(m_rows.size()))
        m_rows.emplace_back();
    return m_rows[std::size_t(row - m_firstRow)];
}

ListRow *AnchoredList::rowAt(int row) const
{
    const int at = row - m_firstRow;
    return at >= 0 && at < int(m_rows.size()) ? m_rows[std::size_t(at)].get() : nullptr;
}

QQuickItem *AnchoredList::itemAt(int row) const
{
    const ListRow *shown = rowAt(row);
    return shown ? shown->item() : nullptr;
}

int AnchoredList::indexOf(const QQuickItem *item) const
{
    const auto found = std::ranges::find_if(
        m_rows, [item](const auto &row) { return row && row->item() == item; });
    return found == m_rows.end() ? -1 : m_firstRow + int(found - m_rows.begin());
}

std::unique_ptr<ListRow> AnchoredList::createRow(int row)
{
    const QVariant kind = kindOf(row);
    ItemPointer item = takePooledItem(kind);
    if (item)
        reuseItem(*item, row);
    else
        item = createItem(row);
    if (!item)
        return nullptr;
    // Screen readers read the rows in the order of the items.
    if (QQuickItem *next = itemAt(row + 1))
        item->stackBefore(next);
    else if (QQuickItem *previous = itemAt(row - 1))
        item->stackAfter(previous);
    item->setHeight(item->implicitHeight());
    m_offsets.setHeight(row, item->implicitHeight());
    connect(item.get(), &QQuickItem::implicitHeightChanged, this,
            [this, shown = item.get()] { updateRowHeight(shown); });
    auto created = std::make_unique<ListRow>(std::move(item), [this] { polish(); });
    created->kind = kind;
    return created;
}

ItemPointer AnchoredList::createItem(int row)
{
    const int trailing = row - modelCount();
    QQmlComponent *component = trailing < 0 ? m_delegate : m_trailing.value(trailing);
    if (!component || !component->isReady()) {
        qmlWarning(this) << "cannot create a row: "
                         << (component ? component->errorString() : QStringLiteral("no component"));
        return nullptr;
    }
    QQmlContext *context = component->creationContext();
    QVariantMap properties = roleValues(row);
    properties[QStringLiteral("parent")] = QVariant::fromValue(m_content);
    properties[QStringLiteral("width")] = width();
    QObject *object =
        component->createWithInitialProperties(properties, context ? context : qmlContext(this));
    auto *item = qobject_cast<QQuickItem *>(object);
    if (!item) {
        delete object;
        return nullptr;
    }
    QQmlEngine::setObjectOwnership(item, QQmlEngine::CppOwnership);
    item->setParent(this);
    if (row == m_currentIndex)
        item->setProperty("isCurrent", true);
    return ItemPointer(item);
}

void AnchoredList::reuseItem(QQuickItem &item, int row)
{
    item.setWidth(width());
    setProperties(item, roleValues(row));
    item.setProperty("isCurrent", row == m_currentIndex);
    item.setVisible(true);
}

QVariant AnchoredList::kindOf(int row) const
{
    return valueOf(m_kindRole, row);
}

QVariant AnchoredList::valueOf(const QString &roleName, int row) const
{
    const int role = m_model ? m_model->roleNames().key(roleName.toUtf8(), -1) : -1;
    return row < modelCount() && role >= 0 ? m_model->data(m_model->index(row, 0), role)
                                           : QVariant();
}

ItemPointer AnchoredList::takePooledItem(const QVariant &kind)
{
    const auto found = kind.isValid() ? std::ranges::find(m_pooledItems, kind, &PooledItem::kind)
                                      : m_pooledItems.end();
    if (found == m_pooledItems.end())
        return nullptr;
    ItemPointer item = std::move(found->item);
    m_pooledItems.erase(found);
    return item;
}

void AnchoredList::recycleRow(std::unique_ptr<ListRow> dropped)
{
    constexpr std::size_t maxPooledItems = 12;
    if (!dropped || !dropped->kind.isValid())
        return;
    ItemPointer item = dropped->takeItem();
    item->disconnect(this);
    item->setVisible(false);
    item->setOpacity(1);
    m_pooledItems.push_back({.kind = dropped->kind, .item = std::move(item)});
    if (m_pooledItems.size() <= maxPooledItems)
        return;
    // Discards an item of a kind that the pool contains twice, else the least recently used item:
    // the rarest kinds, with pictures, are the most expensive to create.
    const auto isDuplicate = [this](const PooledItem &each) {
        return std::ranges::count(m_pooledItems, each.kind, &PooledItem::kind) > 1;
    };
    const auto duplicate = std::ranges::find_if(m_pooledItems, isDuplicate);
    m_pooledItems.erase(duplicate == m_pooledItems.end() ? m_pooledItems.begin() : duplicate);
}

QVariantMap AnchoredList::roleValues(int row, const QList<int> &roles) const
{
    QVariantMap values;
    if (row >= modelCount())
        return values;
    const QModelIndex index = m_model->index(row, 0);
    const auto names = m_model->roleNames();
    for (auto name = names.begin(); name != names.end(); ++name) {
        const bool isRequested = roles.isEmpty() || roles.contains(name.key());
        const QLatin1String text(*name);
        if (isRequested && text != m_kindRole && text != m_costRole)
            values.insert(text, m_model->data(index, name.key()));
    }
    return values;
}

void AnchoredList::updateRowHeight(const QQuickItem *item)
{
    const int row = indexOf(item);
    if (row < 0)
        return;
    itemAt(row)->setHeight(item->implicitHeight());
    m_offsets.setHeight(row, item->implicitHeight());
    polish();
}

} // namespace tolvane
