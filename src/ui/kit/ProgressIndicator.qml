// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Says that something is on its way, for as long as it is visible. Decoration: what is waited for
// has to say so in words.
Item {
    id: indicator

    property color tint: Theme.primaryColor

    implicitWidth: 20
    implicitHeight: 20
    Accessible.ignored: true

    Icon {
        id: wheel

        // In steps: between two spokes there is nothing to see.
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
