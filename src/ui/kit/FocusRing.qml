// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Outlines the item that has the keyboard focus.
Rectangle {
    id: ring

    property color tint: "transparent"
    property bool isShown: parent.activeFocus

    anchors.fill: parent
    anchors.margins: -2
    radius: Metrics.ItemRadius
    color: "transparent"
    border.width: 2
    border.color: tint
    visible: isShown
}
