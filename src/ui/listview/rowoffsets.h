// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace tolvane {

/// Heights of rows that stand below each other, and where each begins. A row that has not been
/// measured counts with an estimate. A change costs a pass over the rows behind it, once.
class RowOffsets
{
public:
    static constexpr double estimate = 100;

    int count() const { return int(m_heights.size()); }
    void insert(int row, int count);
    void remove(int row, int count);
    void clear();

    double height(int row) const { return m_heights[std::size_t(row)]; }
    void setHeight(int row, double height);

    /// From the top of the first row to the top of that row; for count(), to the end of the last.
    double offset(int row) const;
    /// The row that has what is so far from the top of the first; the nearest if there is none.
    /// -1 without rows.
    int rowAt(double offset) const;

private:
    void forgetBehind(int row);

    std::vector<double> m_heights;
    /// Where rows begin, as far as it is known.
    mutable std::vector<double> m_offsets = {0};
};

} // namespace tolvane
