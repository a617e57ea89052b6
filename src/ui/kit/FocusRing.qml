// SPDX-License-Identifier: MIT
import QtQuick

// Outlines the item that has the keyboard focus.
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
