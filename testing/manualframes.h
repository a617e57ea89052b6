// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QAnimationDriver>
#include <QtCore/QCoreApplication>

namespace tolvane::test {

/// An animation driver whose frames the test triggers.
class ManualFrames final : public QAnimationDriver
{
public:
    ManualFrames() { install(); }
    qint64 elapsed() const override { return m_now; }
    void pass(int milliseconds)
    {
        QCoreApplication::processEvents(); // Starts pending animations.
        m_now += milliseconds;
        advance();
    }

private:
    qint64 m_now = 0;
};

} // namespace tolvane::test
