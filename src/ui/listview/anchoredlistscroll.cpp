// SPDX-License-Identifier: MIT
// Scrolling: its targets, and the keys for the current row.
#include "ui/listview/anchoredlist.h"

#include <algorithm>

namespace tolvane {

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

void AnchoredList::beginScroll()
{
    if (!m_scrollAnimation.isActive() || m_scrollAnimation.hasBegun())
        return;
    // Creates the next rows first, since the distance depends on their heights.
    fillViewport(m_contentY, height());
    // Of a long distance only the end is animated: the rows before it would be illegible.
    const double longest = 2 * height();
    m_scrollAnimation.begin(std::clamp(targetContentY() - m_contentY, -longest, longest));
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
    // The heights of the neighbours must be known.
    m_spentCost = 0;
    fillViewport(m_contentY - height(), 2 * height());
    const double top = finalContentY();
    const double bottom = top + height() - m_bottomMargin;
    const auto spanOf = [&](int row) { return std::pair(positionOf(row), positionOf(row + 1)); };
    int next = m_offsets.rowAt((direction > 0 ? top : bottom - 1) - positionOf(0));
    if (m_currentIndex >= 0) {
        const auto [begin, end] = spanOf(m_currentIndex);
        const double beyond = direction > 0 ? end - bottom : top - begin;
        const bool isInViewport = begin < bottom && end > top;
        if (isInViewport && beyond > 0.5) {
            scrollBy(direction * std::min(beyond, (bottom - top) / 2), 150);
            return;
        }
        if (isInViewport)
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
