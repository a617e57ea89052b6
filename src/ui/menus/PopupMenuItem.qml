// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An entry of a popup menu. The menu moves the focus between its entries.
Pressable {
    id: item

    required property string text

    name: text
    activeFocusOnTab: false
    implicitWidth: label.implicitWidth + 2 * Metrics.Padding + Metrics.SmallPadding
    implicitHeight: label.implicitHeight + 2 * Metrics.SmallPadding
    focusRing.tint: Theme.isDark ? "white" : "black"
    focusRing.ground: Theme.backgroundColor
    focusRing.anchors.leftMargin: Metrics.SmallPadding / 2
    focusRing.anchors.rightMargin: Metrics.SmallPadding / 2
    focusRing.anchors.topMargin: 0
    focusRing.anchors.bottomMargin: 0
    Accessible.role: Accessible.MenuItem

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: Metrics.SmallPadding / 2
        anchors.rightMargin: Metrics.SmallPadding / 2
        radius: Metrics.ItemRadius
        color: Theme.isDark ? "white" : "black"
        opacity: item.isPressed ? 0.2 : item.focusRing.visible || item.isHovered ? 0.1 : 0
    }
    Text {
        id: label

        anchors.fill: parent
        anchors.leftMargin: Metrics.Padding
        anchors.rightMargin: Metrics.Padding
        verticalAlignment: Text.AlignVCenter
        horizontalAlignment: Text.AlignLeft
        text: item.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: Theme.isDark ? "white" : "black"
        opacity: item.enabled ? 1 : 0.4
        font.pixelSize: Theme.footnote
        Accessible.ignored: true
    }
}
