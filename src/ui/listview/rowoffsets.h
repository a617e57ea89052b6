// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <vector>

namespace tolvane {

/// Heights and offsets of rows that are below each other. A row that has not been measured has an
/// estimated height. After a change, the next query calculates the offsets of the rows after it.
class TOLVANE_VIEWS_AUTOTEST_EXPORT RowOffsets
{
public:
    static constexpr double estimatedHeight = 100;

    int count() const { return int(m_heights.size()); }
    void insert(int row, int count);
    void remove(int row, int count);
    void clear();

    double height(int row) const { return m_heights[std::size_t(row)]; }
    void setHeight(int row, double height);

    /// From the top of the first row to the top of this row; for count(), to the end of the last.
    double offset(int row) const;
    /// The row at an offset from the top of the first row, or the row nearest to it. -1 without
    /// rows.
    int rowAt(double offset) const;

private:
    void invalidateAfter(int row);

    std::vector<double> m_heights;
    /// The offsets that have been calculated.
    mutable std::vector<double> m_offsets = {0};
};

} // namespace tolvane
