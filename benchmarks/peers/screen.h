// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/QImage>

namespace tolvane::peers {

/// The window of a host as it is on the screen, seen from another process.
class Screen
{
public:
    static QImage picture();

    /// The colour of an agent's bubble, which nothing else in the window has.
    static constexpr QRgb agentColor = 0xffe91e63;

    /// Waits until one more bubble of an agent appears.
    /// @param action called first
    /// @returns the time from the action to the picture with the bubble, in ms
    template <typename Action>
    static double timeUntilShown(const Action &action)
    {
        const int before = agentPixels();
        action();
        return waitForMoreThan(before);
    }

private:
    static int agentPixels();
    static double waitForMoreThan(int before);
};

} // namespace tolvane::peers
