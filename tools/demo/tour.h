// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

class QQuickWindow;

struct TourOptions
{
    /// The folder for the screenshots.
    QString folder;
    /// Visits one window size and appearance only.
    bool isBrief = false;
    /// The first visit waits for a push and opens the messenger by its banner.
    bool hasPush = false;
};

/// Operates the shop and the messenger like a customer, in several window sizes, light and dark.
/// Prints the paths of the screenshots. Returns the exit code: a failure if a control does not
/// appear in time.
int takeTour(QQuickWindow &window, const TourOptions &options);
