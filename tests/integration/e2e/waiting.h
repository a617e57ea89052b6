// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtTest/QTest>

#include <functional>
#include <stdexcept>

namespace tolvane::test {

/// Lets the window and everything else go on until something is so. Throws when it does not become
/// so, on a machine that is busy with other things.
inline void waitFor(const QString &what, const std::function<bool()> &isSo)
{
    constexpr int patience = 30'000;
    if (!QTest::qWaitFor(isSo, patience))
        throw std::runtime_error("in vain: " + what.toStdString());
}

} // namespace tolvane::test
