// SPDX-License-Identifier: MIT
#include "ui/listview/anchoredlist.h"

#include <QtGui/QAccessible>

#include <algorithm>
#include <iterator>

namespace tolvane {

AnchoredList::AnchoredList(QQuickItem *parent)
    : QQuickItem(parent)
    , m_content(new QQuickItem(this))
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
    QList<QPointer<QQmlComponent>> replacement;
    for (const QVariant &component : components)
        replacement += component.value<QQmlComponent *>();
    if (m_trailing == replacement)
        return;
    for (qsizetype at = m_trailing.size() - 1; at >= 0; --at) {
        if (replacement.contains(m_trailing.at(at)))
            continue;
        removeRows(modelCount() + int(at), 1);
        m_trailing.removeAt(at);
    }
    for (qsizetype at = 0; at < replacement.size(); ++at) {
        if (at < m_trailing.size() && m_trailing.at(at) == replacement.at(at))
            continue;
        m_trailing.insert(at, replacement.at(at));
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
