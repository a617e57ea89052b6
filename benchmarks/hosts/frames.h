// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAnimationDriver>
#include <QtQuick/QQuickWindow>

namespace tolvane::bench {

/// The time since the first call, in ms.
double now();

/// The processor time of this process in ms. It does not depend on other processes.
double processorTime();

/// Waits until a frame with the present state of the scene is on the screen.
/// @returns when it was there, as now()
double nextFrame(QQuickWindow &window);

/// Advances animations by a fixed time for each frame, however long a frame takes, so that each run
/// renders the same frames. Needs the basic render loop. There may be one driver at a time, created
/// before the first animation.
class FixedStepDriver final : public QAnimationDriver
{
public:
    explicit FixedStepDriver(QQuickWindow &window);

    qint64 elapsed() const override { return m_elapsed; }

    /// Advances the animations and renders a frame.
    /// @returns the processor time for both, in ms
    double frame(int milliseconds = 16);

private:
    QQuickWindow &m_window;
    qint64 m_elapsed = 0;
};

} // namespace tolvane::bench
