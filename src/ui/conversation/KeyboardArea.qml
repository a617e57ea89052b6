// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Tolvane.Private

// An item as high as the part of the window that the on-screen keyboard covers. The height is 0 on
// systems that shrink the window instead.
Item {
    readonly property real windowHeight: Window.height

    height: Keyboard.isShown ? Math.max(0, windowHeight - Keyboard.top) : 0

    Behavior on height {
        NumberAnimation {
            duration: Metrics.FadeDuration
            easing.type: Easing.OutCubic
        }
    }
}
