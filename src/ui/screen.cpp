// SPDX-License-Identifier: MIT
#include "platform/userinterface.h"
#include "ui/home/viewcontroller.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace tolvane {

namespace {

QSizeF screenSize()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? QSizeF(screen->size()) : QSizeF(0, 0);
}

// Loading the library is what makes it available.
[[maybe_unused]] const bool isRegistered = [] {
    registerUserInterface(
        {.present = TolvaneViewController::presentInForeground, .screenSize = screenSize});
    return true;
}();

} // namespace

} // namespace tolvane
