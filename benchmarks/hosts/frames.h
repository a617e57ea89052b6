// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAnimationDriver>
#include <QtQuick/QQuickWindow>

#include <functional>

namespace tolvane::bench {

/// Milliseconds since some moment.
double now();

/// What the process has taken of the processors, in milliseconds. Unlike time by the clock, it does
/// not depend on what else they do.
double processorTime();

/// Lets events be handled for a while.
void pause(int milliseconds);

/// Lets events be handled until something holds; ends the program when it does not in time.
void waitUntil(const std::function<bool()> &holds);

/// Waits until a frame is on the screen that has all that the scene has now.
/// @returns when it was there, as now()
double nextFrame(QQuickWindow &window);

/// Time for animations that passes by the frame, however long a frame takes, so that each run shows
/// the same frames. Needs the basic render loop; one at a time, made before the first animation.
class SteadyTime final : public QAnimationDriver
{
public:
    explicit SteadyTime(QQuickWindow &window);

    qint64 elapsed() const override { return m_elapsed; }

    /// Lets time pass and draws what there is then.
    /// @returns the processors' time for it, in milliseconds
    double frame(int milliseconds = 16);

private:
    QQuickWindow &m_window;
    qint64 m_elapsed = 0;
};

} // namespace tolvane::bench
