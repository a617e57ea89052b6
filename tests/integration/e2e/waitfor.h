// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtTest/QTest>

#include <functional>
#include <stdexcept>

namespace tolvane::test {

/// Runs the event loop until a condition holds. Throws after a timeout, which is long enough for a
/// busy machine.
inline void waitFor(const QString &what, const std::function<bool()> &condition)
{
    constexpr int timeout = 30'000;
    if (!QTest::qWaitFor(condition, timeout))
        throw std::runtime_error("timeout while waiting for " + what.toStdString());
}

} // namespace tolvane::test
