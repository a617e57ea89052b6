// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A spinner that turns while it is visible. Screen readers ignore it: the view that shows it has to
// provide an accessible name.
Item {
    id: indicator

    property color tint: Theme.primaryColor

    implicitWidth: 20
    implicitHeight: 20
    Accessible.ignored: true

    Icon {
        id: wheel

        // Turns in steps of one spoke: smaller steps would not be visible.
        property int step

        anchors.centerIn: parent
        width: Math.min(parent.width, parent.height)
        height: width
        name: "progress"
        color: indicator.tint
        rotation: step * 45

        NumberAnimation on step {
            from: 0
            to: 8
            duration: 800
            loops: Animation.Infinite
            running: indicator.visible
        }
    }
}
