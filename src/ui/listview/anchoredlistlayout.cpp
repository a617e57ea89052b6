// SPDX-License-Identifier: MIT
// The layout: positions of the rows, and the rows that are visible.
#include "ui/listview/anchoredlist.h"

#include <QtCore/QScopedValueRollback>

#include <algorithm>
#include <cmath>

namespace tolvane {

void AnchoredList::setTopMargin(double margin)
{
    m_topMargin = margin;
    polish();
    Q_EMIT marginsChanged();
}

void AnchoredList::setBottomMargin(double margin)
{
    m_bottomMargin = margin;
    polish();
    Q_EMIT marginsChanged();
}

void AnchoredList::setMoving(bool isMoving)
{
    if (m_isMoving == isMoving)
        return;
    m_isMoving = isMoving;
    if (isMoving) {
        m_scrollAnimation.stop();
        m_isAtEnd = false;
    }
    polish();
    Q_EMIT isMovingChanged();
}

void AnchoredList::setContentY(double y)
{
    m_flickableY = y;
    if (m_isLayingOut || m_contentY == y)
        return;
    m_contentY = y;
    polish();
    Q_EMIT contentYChanged();
}

void AnchoredList::componentComplete()
{
    QQuickItem::componentComplete();
    polish();
}

void AnchoredList::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.width() != oldGeometry.width()) {
        m_content->setWidth(newGeometry.width());
        for (const auto &row : m_rows) {
            if (row)
                row->item()->setWidth(newGeometry.width());
        }
    }
    if (newGeometry.size() != oldGeometry.size())
        polish();
}

void AnchoredList::updatePolish()
{
    if (isComponentComplete() && width() > 0 && height() > 0)
        layoutRows();
}

double AnchoredList::positionOf(int row) const
{
    return m_anchorPosition + m_offsets.offset(row) - m_offsets.offset(m_anchorRow);
}

double AnchoredList::minContentY() const
{
    return positionOf(0) - m_topMargin;
}

double AnchoredList::maxContentY() const
{
    return std::max(minContentY(), positionOf(m_offsets.count()) + m_bottomMargin - height());
}

double AnchoredList::nextContentY(double contentY) const
{
    if (m_scrollAnimation.isActive())
        return targetContentY() - m_scrollAnimation.distance();
    if (m_isMoving)
        return contentY;
    return m_isAtEnd ? maxContentY() : std::clamp(contentY, minContentY(), maxContentY());
}

void AnchoredList::chooseAnchor(double top)
{
    // Heights of rows without an item are estimates. Therefore the anchor is a visible row with an
    // item, else the end of the list if that is visible.
    const int count = m_offsets.count();
    const int first = std::max(0, m_offsets.rowAt(top - positionOf(0)));
    const int known = std::max(first, m_firstRow);
    const double bottom = top + height();
    int row = first;
    if (known < m_firstRow + int(m_rows.size()) && positionOf(known) < bottom)
        row = known;
    else if (positionOf(count) <= bottom)
        row = count;
    m_anchorPosition = positionOf(row);
    m_anchorRow = row;
}

void AnchoredList::fillViewport(double top, double below)
{
    const double bottom = top + height() + below;
    int first = m_anchorRow;
    while (first > 0 && positionOf(first) > top && provideRow(first - 1))
        --first;
    int last = m_anchorRow;
    while (last < m_offsets.count() && positionOf(last) < bottom && provideRow(last))
        ++last;
    while (first < last && positionOf(first + 1) <= top)
        ++first;
    while (last > first && positionOf(last - 1) >= bottom)
        --last;
    recycleRowsOutside(first, last);
}

void AnchoredList::recycleRowsOutside(int first, int last)
{
    for (; !m_rows.empty() && m_firstRow < first; ++m_firstRow) {
        recycleRow(std::move(m_rows.front()));
        m_rows.pop_front();
    }
    while (!m_rows.empty() && m_firstRow + int(m_rows.size()) > last) {
        recycleRow(std::move(m_rows.back()));
        m_rows.pop_back();
    }
}

void AnchoredList::layoutRows()
{
    const QScopedValueRollback settling(m_isLayingOut, true);
    beginScroll();
    double contentY = m_contentY;
    // Rows that become visible differ from their estimated heights, which moves the ends.
    for (int round = 0; round < 10; ++round) {
        const double next = nextContentY(contentY);
        if (round > 0 && next == contentY)
            break;
        contentY = next;
        chooseAnchor(contentY);
        fillViewport(contentY, m_scrollAnimation.isActive() ? height() : 0);
    }
    if (m_scrollAnimation.isFinished())
        m_scrollAnimation.stop();
    if (!m_scrollAnimation.isActive() && !m_isMoving)
        m_isAtEnd = contentY >= maxContentY() - 0.5;
    animateRowChanges();
    std::erase_if(m_leaving, [](const LeavingRow &leaving) { return !leaving.row->isMoving(); });
    placeRows(contentY);
    publishLayout(contentY);
}

void AnchoredList::placeRows(double contentY)
{
    constexpr double farthest = 10'000;
    if (std::abs(contentY - m_contentTop) > farthest)
        m_contentTop = contentY;
    m_content->setY(m_contentTop - contentY);
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (m_rows[at])
            m_rows[at]->place(positionOf(m_firstRow + int(at)) - m_contentTop);
    }
    for (const LeavingRow &leaving : m_leaving)
        leaving.row->place(leaving.position - m_contentTop);
}

void AnchoredList::animateRowChanges()
{
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (!m_rows[at])
            continue;
        ListRow &row = *m_rows[at];
        const int number = m_firstRow + int(at);
        const double shift = row.previousPosition ? *row.previousPosition - positionOf(number) : 0;
        if (m_layoutCount > 0 && m_insertionLayouts[std::size_t(number)] == m_layoutCount)
            row.enter();
        else if (std::abs(shift) > 0.5)
            row.displace(shift);
        row.previousPosition.reset();
    }
    ++m_layoutCount;
}

void AnchoredList::publishLayout(double contentY)
{
    const bool hasMoved = m_contentY != contentY;
    m_contentY = contentY;
    if (m_start != minContentY() || m_end != maxContentY()) {
        m_start = minContentY();
        m_end = maxContentY();
        Q_EMIT endsChanged();
    }
    if (m_flickableY != m_contentY)
        Q_EMIT scrollRequested(m_contentY);
    if (hasMoved)
        Q_EMIT contentYChanged();
}

} // namespace tolvane
