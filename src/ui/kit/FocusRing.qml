// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Outlines the item that has the focus, while the customer uses the keyboard.
RoundedRectangle {
    id: ring

    property color tint: "transparent"
    /// The colour around the item. A ring that would not be seen on it is black or white.
    property color ground: Theme.chatBackgroundColor
    property bool isShown: parent.activeFocus

    anchors.fill: parent
    anchors.margins: -2
    radius: Metrics.ItemRadius
    rim: 2
    color: isShown && tint.a > 0 ? Theme.visibleOn(ground, tint) : tint
    visible: isShown && Keyboard.isInUse
}
