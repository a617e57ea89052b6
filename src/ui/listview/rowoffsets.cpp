// SPDX-License-Identifier: MIT
#include "ui/listview/rowoffsets.h"

#include <algorithm>

namespace tolvane {

void RowOffsets::insert(int row, int count)
{
    m_heights.insert(m_heights.begin() + row, std::size_t(count), estimatedHeight);
    invalidateAfter(row);
}

void RowOffsets::remove(int row, int count)
{
    m_heights.erase(m_heights.begin() + row, m_heights.begin() + row + count);
    invalidateAfter(row);
}

void RowOffsets::clear()
{
    m_heights.clear();
    invalidateAfter(0);
}

void RowOffsets::setHeight(int row, double height)
{
    if (m_heights[std::size_t(row)] == height)
        return;
    m_heights[std::size_t(row)] = height;
    invalidateAfter(row);
}

double RowOffsets::offset(int row) const
{
    while (m_offsets.size() <= std::size_t(row))
        m_offsets.push_back(m_offsets.back() + m_heights[m_offsets.size() - 1]);
    return m_offsets[std::size_t(row)];
}

int RowOffsets::rowAt(double offset) const
{
    this->offset(count());
    const auto behind = std::upper_bound(m_offsets.begin(), m_offsets.end(), offset);
    return std::clamp(int(behind - m_offsets.begin()) - 1, std::min(0, count() - 1), count() - 1);
}

void RowOffsets::invalidateAfter(int row)
{
    if (m_offsets.size() > std::size_t(row) + 1)
        m_offsets.erase(m_offsets.begin() + row + 1, m_offsets.end());
}

} // namespace tolvane
