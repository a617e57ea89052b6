// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QSize>

#include <functional>

namespace tolvane {

/// What the library of views lends to the one beneath it, which knows no windows. All of it is
/// called on the main thread, and any of it may be empty.
struct UserInterface
{
    /// Shows the messenger over the root view of the host's foreground window, if there is one.
    std::function<void()> present;
    /// The size of the screen in device-independent pixels, as it is turned now.
    std::function<QSizeF()> screenSize;
};

/// Called by the library of views as it is loaded.
TOLVANE_PRIVATE_EXPORT void registerUserInterface(UserInterface userInterface);

/// What was registered; everything in it is empty in a process without views.
TOLVANE_PRIVATE_EXPORT const UserInterface &userInterface();

} // namespace tolvane
