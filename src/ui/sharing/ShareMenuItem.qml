// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An item of the share menu. The menu moves the focus between its items.
Pressable {
    id: item

    required property string text

    name: text
    activeFocusOnTab: false
    implicitHeight: 44
    focusRing.tint: "white"
    focusRing.ground: "#262629"
    focusRing.anchors.leftMargin: 6
    focusRing.anchors.rightMargin: 6
    focusRing.anchors.topMargin: 0
    focusRing.anchors.bottomMargin: 0
    Accessible.role: Accessible.MenuItem

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        radius: Metrics.ItemRadius
        color: "white"
        opacity: item.isPressed ? 0.25 : item.focusRing.visible || item.isHovered ? 0.12 : 0
    }

    Text {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        verticalAlignment: Text.AlignVCenter
        text: item.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: "white"
        font.pixelSize: Theme.callout
        Accessible.ignored: true
    }
}
