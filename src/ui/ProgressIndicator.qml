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

    component Spoke: Item {
        id: spoke

        required property int place
        required property color tint

        anchors.fill: parent
        rotation: place * 45
        opacity: 0.25 + 0.75 * (place + 1) / 8

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            width: parent.width * 0.1
            height: parent.height * 0.28
            radius: width / 2
            color: spoke.tint
            antialiasing: true
        }
    }

    Item {
        id: wheel

        // In steps: between two spokes there is nothing to see.
        property int step

        anchors.centerIn: parent
        width: Math.min(parent.width, parent.height)
        height: width
        rotation: step * 45

        NumberAnimation on step {
            from: 0
            to: 8
            duration: 800
            loops: Animation.Infinite
            running: indicator.visible
        }

        Spoke { place: 0; tint: indicator.tint }
        Spoke { place: 1; tint: indicator.tint }
        Spoke { place: 2; tint: indicator.tint }
        Spoke { place: 3; tint: indicator.tint }
        Spoke { place: 4; tint: indicator.tint }
        Spoke { place: 5; tint: indicator.tint }
        Spoke { place: 6; tint: indicator.tint }
        Spoke { place: 7; tint: indicator.tint }
    }
}
