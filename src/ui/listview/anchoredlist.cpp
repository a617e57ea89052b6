// SPDX-License-Identifier: MIT
#include "ui/listview/anchoredlist.h"

#include <QtGui/QAccessible>
#include <QtQml/QQmlContext>
#include <QtQml/QQmlEngine>
#include <QtQml/qqmlinfo.h>

#include <algorithm>
#include <iterator>

namespace tolvane {

AnchoredList::AnchoredList(QQuickItem *parent)
    : QQuickItem(parent)
    , m_scrollAnimation([this] { polish(); })
{
}

AnchoredList::~AnchoredList()
{
    m_scrollAnimation.stop();
}

void AnchoredList::setModel(QAbstractItemModel *model)
{
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (model) {
        using Model = QAbstractItemModel;
        connect(model, &Model::rowsInserted, this,
                [this](const QModelIndex &, int first, int last) {
                    insertRows(first, last - first + 1);
                });
        connect(model, &Model::rowsRemoved, this, [this](const QModelIndex &, int first, int last) {
            removeRows(first, last - first + 1);
        });
        connect(model, &Model::rowsMoved, this,
                [this](const QModelIndex &, int first, int last, const QModelIndex &, int to) {
                    const int count = last - first + 1;
                    removeRows(first, count);
                    insertRows(to > first ? to - count : to, count);
                });
        connect(model, &Model::dataChanged, this,
                [this](const QModelIndex &first, const QModelIndex &last, const QList<int> &roles) {
                    updateRows(first.row(), last.row(), roles);
                });
        connect(model, &Model::modelReset, this, &AnchoredList::resetRows);
        connect(model, &QObject::destroyed, this, &AnchoredList::resetRows);
    }
    resetRows();
    Q_EMIT modelChanged();
}

void AnchoredList::setKindRole(const QString &role)
{
    if (m_kindRole == role)
        return;
    m_kindRole = role;
    m_pooledItems.clear();
    Q_EMIT kindRoleChanged();
}

void AnchoredList::setDelegate(QQmlComponent *delegate)
{
    if (m_delegate == delegate)
        return;
    m_delegate = delegate;
    resetRows();
    Q_EMIT delegateChanged();
}

QVariantList AnchoredList::trailing() const
{
    QVariantList components;
    for (const auto &component : m_trailing)
        components += QVariant::fromValue(component.data());
    return components;
}

void AnchoredList::setTrailing(const QVariantList &components)
{
    QList<QPointer<QQmlComponent>> wanted;
    for (const QVariant &component : components)
        wanted += component.value<QQmlComponent *>();
    if (m_trailing == wanted)
        return;
    for (qsizetype at = m_trailing.size() - 1; at >= 0; --at) {
        if (wanted.contains(m_trailing.at(at)))
            continue;
        removeRows(modelCount() + int(at), 1);
        m_trailing.removeAt(at);
    }
    for (qsizetype at = 0; at < wanted.size(); ++at) {
        if (at < m_trailing.size() && m_trailing.at(at) == wanted.at(at))
            continue;
        m_trailing.insert(at, wanted.at(at));
        insertRows(modelCount() + int(at), 1);
    }
    Q_EMIT trailingChanged();
}

void AnchoredList::resetRows()
{
    m_rows.clear();
    m_leaving.clear();
    m_pooledItems.clear();
    m_offsets.clear();
    const int count = modelCount() + int(m_trailing.size());
    m_offsets.insert(0, count);
    m_insertionLayouts.assign(std::size_t(count), -1);
    m_anchorRow = 0;
    m_anchorPosition = m_topMargin;
    m_firstRow = 0;
    m_isAtEnd = true;
    m_scrollAnimation.stop();
    setCurrentIndex(-1);
    polish();
}

void AnchoredList::rememberPositions()
{
    polish();
    if (m_layoutCount == 0)
        return;
    m_isAtEnd = false;
    // The first visible row stays in place when rows below it are inserted or removed.
    const int row = std::max(0, m_offsets.rowAt(m_contentY - positionOf(0)));
    m_anchorPosition = positionOf(row);
    m_anchorRow = row;
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (m_rows[at] && !m_rows[at]->previousPosition)
            m_rows[at]->previousPosition = positionOf(m_firstRow + int(at)) + m_rows[at]->shift();
    }
}

void AnchoredList::insertRows(int row, int count)
{
    rememberPositions();
    const bool isAbove = row < m_anchorRow || (row == m_anchorRow && row < m_offsets.count());
    m_offsets.insert(row, count);
    m_insertionLayouts.insert(m_insertionLayouts.begin() + row, std::size_t(count), m_layoutCount);
    if (isAbove)
        m_anchorRow += count;
    if (row <= m_firstRow) {
        m_firstRow += count;
    } else if (row < m_firstRow + int(m_rows.size())) {
        Rows added{std::size_t(count)};
        m_rows.insert(m_rows.begin() + (row - m_firstRow), std::move_iterator(added.begin()),
                      std::move_iterator(added.end()));
    }
    if (m_currentIndex >= row) {
        m_currentIndex += count;
        Q_EMIT currentIndexChanged();
    }
}

void AnchoredList::removeRows(int row, int count)
{
    rememberPositions();
    const int first = std::clamp(row - m_firstRow, 0, int(m_rows.size()));
    const int last = std::clamp(row + count - m_firstRow, 0, int(m_rows.size()));
    for (int at = first; at < last; ++at) {
        auto &leaving = m_rows[std::size_t(at)];
        if (!leaving)
            continue;
        // Starts at its last visible position: an insertion may have moved it since that layout.
        const double position = leaving->previousPosition
                                    ? *leaving->previousPosition - leaving->shift()
                                    : positionOf(m_firstRow + at);
        leaving->leave();
        m_leaving.push_back({std::move(leaving), position});
    }
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + last);
    m_firstRow -= std::clamp(m_firstRow - row, 0, count);
    m_offsets.remove(row, count);
    m_insertionLayouts.erase(m_insertionLayouts.begin() + row,
                             m_insertionLayouts.begin() + row + count);
    m_anchorRow -= std::clamp(m_anchorRow - row, 0, count);
    if (m_currentIndex >= row) {
        m_currentIndex = m_currentIndex < row + count ? -1 : m_currentIndex - count;
        Q_EMIT currentIndexChanged();
    }
}

void AnchoredList::updateRows(int first, int last, const QList<int> &roles)
{
    // Replaced records animate to their positions; changed roles keep the list at its end.
    if (roles.isEmpty())
        rememberPositions();
    const int end = std::min(last + 1, m_firstRow + int(m_rows.size()));
    for (int row = std::max(first, m_firstRow); row < end; ++row) {
        const ListRow *shown = rowAt(row);
        if (!shown)
            continue;
        setProperties(*shown->item(), roleValues(row, roles));
    }
}

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
    auto made = std::make_unique<ListRow>(std::move(item), [this] { polish(); });
    made->kind = kind;
    return made;
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
    properties[QStringLiteral("parent")] = QVariant::fromValue(this);
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
        const bool isWanted = roles.isEmpty() || roles.contains(name.key());
        const QLatin1String text(*name);
        if (isWanted && text != m_kindRole && text != m_costRole)
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

void AnchoredList::setCurrentIndex(int row)
{
    if (m_currentIndex == row)
        return;
    for (const auto &[each, isCurrent] : {std::pair(m_currentIndex, false), std::pair(row, true)}) {
        if (QQuickItem *item = itemAt(each))
            item->setProperty("isCurrent", isCurrent);
    }
    m_currentIndex = row;
    Q_EMIT currentIndexChanged();
}

bool AnchoredList::announce(const QString &text)
{
#if QT_CONFIG(accessibility) && QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(this, text);
    QAccessible::updateAccessibility(&event);
    return true;
#else
    Q_UNUSED(text)
    return false;
#endif
}

} // namespace tolvane
