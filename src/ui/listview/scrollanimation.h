// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QVariantAnimation>

#include <functional>

namespace tolvane {

/// An animation that scrolls to a position, to the current row from one direction, or to an end of
/// the list. The target may move while the animation runs.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ScrollAnimation
{
public:
    enum class Kind { start, end, position, currentRow };

    /// @param moved called for each step, the last included
    explicit ScrollAnimation(std::function<void()> moved);

    /// @param duration in milliseconds
    void setTarget(Kind kind, int duration, double position = 0);
    void stop();

    bool isActive() const { return m_isActive; }
    Kind kind() const { return m_kind; }
    /// The position to scroll to; for the current row, the direction.
    double position() const { return m_position; }

    bool hasBegun() const { return m_hasBegun; }
    /// @param distance the distance to scroll
    void begin(double distance);
    /// The remaining distance.
    double distance() const;
    bool isFinished() const;

private:
    QVariantAnimation m_animation;
    Kind m_kind = Kind::end;
    double m_position = 0;
    double m_distance = 0;
    bool m_isActive = false;
    bool m_hasBegun = false;
};

} // namespace tolvane
