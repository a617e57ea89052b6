// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAnimationDriver>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

namespace tolvane::test {

/// Runs all animations and QML timers ten times as fast. With OpenGL it has no effect, because
/// those render loops install animation drivers of their own.
class FastAnimations final : public QAnimationDriver
{
public:
    static constexpr int factor = 10;

    FastAnimations()
    {
        m_time.start();
        install();
        connect(&m_ticks, &QTimer::timeout, this, &QAnimationDriver::advance);
        m_ticks.start(2);
    }
    qint64 elapsed() const override { return m_time.elapsed() * factor; }

private:
    QElapsedTimer m_time;
    QTimer m_ticks;
};

} // namespace tolvane::test
