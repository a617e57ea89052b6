// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QVariantAnimation>

#include <functional>

namespace tolvane {

/// A scrolling on its way: to a place, to the current row from one direction, or to an end of the
/// list, wherever those are meanwhile.
class ScrollGoal
{
public:
    enum class Kind { start, end, place, currentRow };

    /// @param moved called for each step, the last included
    explicit ScrollGoal(std::function<void()> moved);

    /// @param duration in milliseconds
    void aim(Kind kind, int duration, double place = 0);
    void stop();

    bool isAimed() const { return m_isAimed; }
    Kind kind() const { return m_kind; }
    /// The place it was aimed at; for the current row, the direction.
    double place() const { return m_place; }

    bool hasBegun() const { return m_hasBegun; }
    /// @param distance what there is to go
    void begin(double distance);
    /// What is left to go.
    double distance() const;
    bool hasArrived() const;

private:
    QVariantAnimation m_motion;
    Kind m_kind = Kind::end;
    double m_place = 0;
    double m_distance = 0;
    bool m_isAimed = false;
    bool m_hasBegun = false;
};

} // namespace tolvane
