// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QSize>

#include <functional>

namespace tolvane {

/// Functions of the library of views that the core calls, since it has no windows itself. Called on
/// the main thread; each may be empty.
struct UserInterface
{
    /// Shows the messenger over the root view of the host's foreground window, if there is one.
    std::function<void()> present;
    /// Closes the messenger, animated; no effect if it is closed.
    std::function<void()> dismiss;
    /// The size of the screen in device-independent pixels, in its current orientation.
    std::function<QSizeF()> screenSize;
};

/// Called by the library of views when it is loaded.
TOLVANE_PRIVATE_EXPORT void registerUserInterface(UserInterface userInterface);

/// The registered functions; all are empty in a process without views.
TOLVANE_PRIVATE_EXPORT const UserInterface &userInterface();

} // namespace tolvane
