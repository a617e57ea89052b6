// SPDX-License-Identifier: MIT
// Positions of the rows, and scrolling.
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
    m_spentCost = 0;
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

double AnchoredList::targetContentY() const
{
    if (m_scrollAnimation.kind() == ScrollAnimation::Kind::start)
        return minContentY();
    if (m_scrollAnimation.kind() == ScrollAnimation::Kind::end)
        return maxContentY();
    double position = m_scrollAnimation.position();
    if (m_scrollAnimation.kind() == ScrollAnimation::Kind::currentRow) {
        // Just far enough to show the row; if it is higher than the viewport, its nearer edge.
        const int row = std::max(0, m_currentIndex);
        const auto [lowest, highest] =
            std::minmax({positionOf(row), positionOf(row + 1) + m_bottomMargin - height()});
        position = position < 0 ? highest : lowest;
    }
    return std::clamp(position, minContentY(), maxContentY());
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
    // A row has its real height only once its item exists: a visible row that has an item becomes
    // the anchor. Otherwise the end of the list does, if it is visible.
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

void AnchoredList::beginScroll()
{
    if (!m_scrollAnimation.isActive() || m_scrollAnimation.hasBegun())
        return;
    // New rows are measured before the distance to them is.
    fillViewport(m_contentY, height());
    // A long distance is not animated in full: nobody could read the rows created for it.
    const double longest = 2 * height();
    m_scrollAnimation.begin(std::clamp(targetContentY() - m_contentY, -longest, longest));
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
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (m_rows[at])
            m_rows[at]->place(positionOf(m_firstRow + int(at)) - contentY);
    }
    std::erase_if(m_leaving, [](const LeavingRow &leaving) { return !leaving.row->isMoving(); });
    for (const LeavingRow &leaving : m_leaving)
        leaving.row->place(leaving.position - contentY);
    publishLayout(contentY);
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

double AnchoredList::finalContentY() const
{
    return m_scrollAnimation.isActive() ? targetContentY() : m_contentY;
}

void AnchoredList::scrollToEnd(int duration)
{
    polish();
    if (m_layoutCount > 0)
        m_scrollAnimation.setTarget(ScrollAnimation::Kind::end, duration);
}

void AnchoredList::scrollToStart(int duration)
{
    m_scrollAnimation.setTarget(ScrollAnimation::Kind::start, duration);
    polish();
}

void AnchoredList::scrollBy(double distance, int duration)
{
    m_scrollAnimation.setTarget(ScrollAnimation::Kind::position, duration,
                                finalContentY() + distance);
    polish();
}

void AnchoredList::step(int direction)
{
    const int last = modelCount() - 1;
    if (last < 0 || m_layoutCount == 0)
        return;
    // The neighbours are measured before they are shown.
    m_spentCost = 0;
    fillViewport(m_contentY - height(), 2 * height());
    const double top = finalContentY();
    const double bottom = top + height() - m_bottomMargin;
    const auto spanOf = [&](int row) { return std::pair(positionOf(row), positionOf(row + 1)); };
    int next = m_offsets.rowAt((direction > 0 ? top : bottom - 1) - positionOf(0));
    if (m_currentIndex >= 0) {
        const auto [begin, end] = spanOf(m_currentIndex);
        const double beyond = direction > 0 ? end - bottom : top - begin;
        const bool isInSight = begin < bottom && end > top;
        if (isInSight && beyond > 0.5) {
            scrollBy(direction * std::min(beyond, (bottom - top) / 2), 150);
            return;
        }
        if (isInSight)
            next = m_currentIndex + direction;
    }
    next = std::clamp(next, 0, last);
    setCurrentIndex(next);
    const auto [begin, end] = spanOf(next);
    if (end > bottom || begin < top)
        m_scrollAnimation.setTarget(ScrollAnimation::Kind::currentRow, 150, direction);
    else if (m_scrollAnimation.isActive())
        m_scrollAnimation.setTarget(ScrollAnimation::Kind::position, 150, top);
    polish();
}

void AnchoredList::showCurrentRow()
{
    if (modelCount() == 0 || m_layoutCount == 0)
        return;
    const double top = finalContentY();
    const double bottom = top + height() - m_bottomMargin;
    if (m_currentIndex < 0)
        setCurrentIndex(
            std::clamp(m_offsets.rowAt(bottom - 1 - positionOf(0)), 0, modelCount() - 1));
    const bool isAbove = positionOf(m_currentIndex + 1) <= top;
    if (isAbove || positionOf(m_currentIndex) >= bottom)
        m_scrollAnimation.setTarget(ScrollAnimation::Kind::currentRow, 150, isAbove ? -1 : 1);
    polish();
}

} // namespace tolvane
