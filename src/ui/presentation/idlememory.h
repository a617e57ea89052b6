// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtGui/QWindow>

#include <chrono>

namespace tolvane {

/// Keeps memory for some time after a presentation, so that the next one opens immediately: the QML
/// engine, decoded pictures, and the caches of the renderer of the host's window. Main thread.
namespace idlememory {

/// How long the memory is kept.
constexpr std::chrono::seconds keptFor{30};

/// To be called when the messenger has opened.
void keep();

/// To be called when the messenger has closed. Releases everything after that time, or as soon as
/// the system suspends the application.
/// @param window the host's window that showed the messenger, if any; it may be in its destruction
void releaseLater(QWindow *window);

} // namespace idlememory

} // namespace tolvane
