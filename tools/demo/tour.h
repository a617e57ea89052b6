// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

class QQuickWindow;

struct Tour
{
    /// Where the pictures go.
    QString folder;
    /// One size and colour only.
    bool isBrief = false;
    /// A push is to come before anything is pressed.
    bool hasPush = false;
};

/// Goes through the host and the messenger as a person does, in several sizes, light and dark.
/// Tells what it does. Returns the exit code, which is no success where something was not to be
/// found.
int takeTour(QQuickWindow &window, const Tour &tour);
