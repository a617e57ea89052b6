// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// A button for hosts, in the colors of the branding, with the number of unread conversations.
Pressable {
    id: button

    property string text: Strings.string("help_button")

    // Neutral until the branding has arrived.
    readonly property color fill:
        status.settingsDidLoad ? Theme.accentColor : Theme.isDark ? "white" : "#262629"
    readonly property color textColor:
        status.settingsDidLoad ? Theme.primaryColor : Theme.isDark ? "#262629" : "white"

    name: status.unreadCount > 0
          ? text + ", " + Strings.string("accessibility_unread") + ": " + badge.text : text
    implicitWidth: label.implicitWidth + 56
    implicitHeight: Math.max(52, label.implicitHeight + 2 * Metrics.SmallPadding)
    focusRing.tint: fill
    focusRing.anchors.margins: -4
    focusRing.radius: height / 2 + 4

    HelpButtonData {
        id: status
    }

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: Qt.tint(button.fill, Qt.alpha(button.textColor,
                                             button.isPressed ? 0.25 : button.isHovered ? 0.12 : 0))
    }
    Text {
        id: label

        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width - 2 * Metrics.Padding)
        text: button.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.pixelSize: Theme.body
        font.weight: Font.DemiBold
        color: button.textColor
        Accessible.ignored: true
    }
    Rectangle {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.rightMargin: -2
        anchors.topMargin: -6
        width: Math.max(height, badge.implicitWidth + 12)
        height: badge.implicitHeight + 6
        radius: height / 2
        // Dark enough for small white text.
        color: "#c4261d"
        border.width: 2
        border.color: "white"
        visible: status.unreadCount > 0

        Text {
            id: badge

            anchors.centerIn: parent
            text: status.unreadCount > 99 ? "99+" : status.unreadCount
            textFormat: Text.PlainText
            font.pixelSize: Theme.caption
            font.weight: Font.Bold
            color: "white"
            Accessible.ignored: true
        }
    }
}
