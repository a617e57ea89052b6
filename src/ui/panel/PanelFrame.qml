// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The outline and the shadow of the panel. The shadow consists of nested rings of decreasing
// opacity, slightly lower than the panel.
Item {
    id: frame

    required property real radius

    Repeater {
        model: 14

        RoundedRectangle {
            required property int index

            anchors.fill: parent
            anchors.topMargin: 4 - index
            anchors.bottomMargin: -4 - index
            anchors.leftMargin: -index
            anchors.rightMargin: -index
            radius: frame.radius + index
            rim: index === 0 ? 5 : 1
            color: Qt.rgba(0, 0, 0, (14 - index) * 0.012)
        }
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -1
        radius: frame.radius + 1
        color: "transparent"
        border.width: 1
        border.color: Qt.alpha(Theme.isDark ? "white" : "black", 0.16)
    }
}
