// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtQuick/QQuickWindow>

#include <chrono>

namespace tolvane {

/// What is kept after a presentation for the next one, and how long: the QML engine, decoded
/// pictures, and what the renderer of the host's window has cached. Main thread.
namespace idlememory {

/// The next presentation within this time opens at once.
constexpr std::chrono::seconds keptFor{30};

/// To be called when the messenger has opened.
void keep();

/// To be called when the messenger has closed. Releases everything after that time, or as soon as
/// the system suspends the application.
/// @param window the host's window that showed the messenger, if any
void releaseLater(QQuickWindow *window);

} // namespace idlememory

} // namespace tolvane
