// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Tolvane.Private

// As high as what the on-screen keyboard covers of the window. Where the system makes the window
// smaller instead, that is nothing.
Item {
    readonly property real windowHeight: Window.height

    height: Keyboard.isShown ? Math.max(0, windowHeight - Keyboard.top) : 0

    Behavior on height {
        NumberAnimation {
            duration: 250
            easing.type: Easing.OutCubic
        }
    }
}
