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
        m_goal.stop();
        m_isAtEnd = false;
    }
    polish();
    Q_EMIT isMovingChanged();
}

void AnchoredList::setContentY(double y)
{
    m_flickableY = y;
    if (m_isSettling || m_contentY == y)
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
    if (isComponentComplete() && width() > 0 && height() > 0)
        settle();
}

double AnchoredList::placeOf(int row) const
{
    return m_anchorPlace + m_offsets.offset(row) - m_offsets.offset(m_anchor);
}

double AnchoredList::firstPlace() const
{
    return placeOf(0) - m_topMargin;
}

double AnchoredList::lastPlace() const
{
    return std::max(firstPlace(), placeOf(m_offsets.count()) + m_bottomMargin - height());
}

double AnchoredList::goalPlace() const
{
    if (m_goal.kind() == ScrollGoal::Kind::start)
        return firstPlace();
    if (m_goal.kind() == ScrollGoal::Kind::end)
        return lastPlace();
    double place = m_goal.place();
    if (m_goal.kind() == ScrollGoal::Kind::currentRow) {
        // Just far enough to show the row; if it is higher than the viewport, its nearer edge.
        const int row = std::max(0, m_currentIndex);
        const auto [least, most] =
            std::minmax({placeOf(row), placeOf(row + 1) + m_bottomMargin - height()});
        place = place < 0 ? most : least;
    }
    return std::clamp(place, firstPlace(), lastPlace());
}

double AnchoredList::wantedPlace(double place) const
{
    if (m_goal.isAimed())
        return goalPlace() - m_goal.distance();
    if (m_isMoving)
        return place;
    return m_isAtEnd ? lastPlace() : std::clamp(place, firstPlace(), lastPlace());
}

void AnchoredList::anchorAt(double top)
{
    // A row has its real height only once its item exists: a visible row that has an item becomes
    // the anchor. Otherwise the end of the list does, if it is visible.
    const int count = m_offsets.count();
    const int first = std::max(0, m_offsets.rowAt(top - placeOf(0)));
    const int known = std::max(first, m_firstRow);
    const double bottom = top + height();
    int row = first;
    if (known < m_firstRow + int(m_rows.size()) && placeOf(known) < bottom)
        row = known;
    else if (placeOf(count) <= bottom)
        row = count;
    m_anchorPlace = placeOf(row);
    m_anchor = row;
}

void AnchoredList::fill(double top, double below)
{
    const double bottom = top + height() + below;
    const auto provide = [this](int row) {
        if (!slot(row))
            slot(row) = make(row);
    };
    int first = m_anchor;
    while (first > 0 && placeOf(first) > top)
        provide(--first);
    int last = m_anchor;
    while (last < m_offsets.count() && placeOf(last) < bottom)
        provide(last++);
    while (first < last && placeOf(first + 1) <= top)
        ++first;
    while (last > first && placeOf(last - 1) >= bottom)
        --last;
    dropOutside(first, last);
}

void AnchoredList::dropOutside(int first, int last)
{
    for (; !m_rows.empty() && m_firstRow < first; ++m_firstRow) {
        drop(std::move(m_rows.front()));
        m_rows.pop_front();
    }
    while (!m_rows.empty() && m_firstRow + int(m_rows.size()) > last) {
        drop(std::move(m_rows.back()));
        m_rows.pop_back();
    }
}

void AnchoredList::beginScroll()
{
    if (!m_goal.isAimed() || m_goal.hasBegun())
        return;
    // New rows are measured before the distance to them is.
    fill(m_contentY, height());
    // A long distance is not animated in full: nobody could read the rows created for it.
    const double most = 2 * height();
    m_goal.begin(std::clamp(goalPlace() - m_contentY, -most, most));
}

void AnchoredList::settle()
{
    const QScopedValueRollback settling(m_isSettling, true);
    beginScroll();
    double place = m_contentY;
    // Rows that become visible differ from their estimated heights, which moves the ends.
    for (int round = 0; round < 10; ++round) {
        const double wanted = wantedPlace(place);
        if (round > 0 && wanted == place)
            break;
        place = wanted;
        anchorAt(place);
        fill(place, m_goal.isAimed() ? height() : 0);
    }
    if (m_goal.hasArrived())
        m_goal.stop();
    if (!m_goal.isAimed() && !m_isMoving)
        m_isAtEnd = place >= lastPlace() - 0.5;
    animateArrivals();
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (m_rows[at])
            m_rows[at]->place(placeOf(m_firstRow + int(at)) - place);
    }
    std::erase_if(m_leaving, [](const LeavingRow &leaving) { return !leaving.row->isMoving(); });
    for (const LeavingRow &leaving : m_leaving)
        leaving.row->place(leaving.place - place);
    report(place);
}

void AnchoredList::animateArrivals()
{
    for (std::size_t at = 0; at < m_rows.size(); ++at) {
        if (!m_rows[at])
            continue;
        ListRow &row = *m_rows[at];
        const int number = m_firstRow + int(at);
        const double shift = row.before ? *row.before - placeOf(number) : 0;
        if (m_layout > 0 && m_arrivals[std::size_t(number)] == m_layout)
            row.enter();
        else if (std::abs(shift) > 0.5)
            row.displace(shift);
        row.before.reset();
    }
    ++m_layout;
}

void AnchoredList::report(double place)
{
    const bool hasMoved = m_contentY != place;
    m_contentY = place;
    if (m_start != firstPlace() || m_end != lastPlace()) {
        m_start = firstPlace();
        m_end = lastPlace();
        Q_EMIT endsChanged();
    }
    if (m_flickableY != m_contentY)
        Q_EMIT moveRequested(m_contentY);
    if (hasMoved)
        Q_EMIT contentYChanged();
}

double AnchoredList::restingPlace() const
{
    return m_goal.isAimed() ? goalPlace() : m_contentY;
}

void AnchoredList::scrollToEnd(int duration)
{
    polish();
    if (m_layout > 0)
        m_goal.aim(ScrollGoal::Kind::end, duration);
}

void AnchoredList::scrollToStart(int duration)
{
    m_goal.aim(ScrollGoal::Kind::start, duration);
    polish();
}

void AnchoredList::scrollBy(double distance, int duration)
{
    m_goal.aim(ScrollGoal::Kind::place, duration, restingPlace() + distance);
    polish();
}

void AnchoredList::step(int direction)
{
    const int last = modelCount() - 1;
    if (last < 0 || m_layout == 0)
        return;
    // The neighbours are measured before they are shown.
    fill(m_contentY - height(), 2 * height());
    const double top = restingPlace();
    const double bottom = top + height() - m_bottomMargin;
    const auto spanOf = [&](int row) { return std::pair(placeOf(row), placeOf(row + 1)); };
    int next = m_offsets.rowAt((direction > 0 ? top : bottom - 1) - placeOf(0));
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
        m_goal.aim(ScrollGoal::Kind::currentRow, 150, direction);
    else if (m_goal.isAimed())
        m_goal.aim(ScrollGoal::Kind::place, 150, top);
    polish();
}

} // namespace tolvane
