// SPDX-License-Identifier: MIT
import QtQuick

// Shows where the keyboard is.
Rectangle {
    id: ring

    property color tint
    property bool isShown: parent.activeFocus

    anchors.fill: parent
    anchors.margins: -2
    radius: 8
    color: "transparent"
    border.width: 2
    border.color: tint
    visible: isShown
}
