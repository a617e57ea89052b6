// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// One conversation in the list: the other side's icon, the last message, its sender and its age.
Item {
    id: item

    required property int index
    required property var preview
    required property string icon
    required property url picture
    required property string content
    required property string caption
    required property bool isUnread
    required property string description

    property bool isCurrent: false

    signal clicked()

    implicitHeight: row.height + 10
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
    // Hides a pooled row from screen readers.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    RoundedRectangle {
        id: row

        x: Theme.columnInset(item.width, 16)
        width: parent.width - 2 * x
        height: Math.max(32, texts.implicitHeight) + 32
        radius: 8
        color: Theme.bubbleAgentColor

        TicketIcon {
            id: ticketIcon

            anchors.left: parent.left
            anchors.leftMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            kind: item.icon
            picture: item.picture
        }

        Column {
            id: texts

            anchors.verticalCenter: parent.verticalCenter
            anchors.left: ticketIcon.right
            anchors.right: unreadDot.left
            anchors.margins: 10
            spacing: 4

            Text {
                width: parent.width
                // Keeps the height of the line if there is no text.
                text: item.content.length > 0 ? item.content : " "
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                maximumLineCount: 1
                elide: Text.ElideRight
                color: Theme.fontAgentBubbleColor
                font.pixelSize: Theme.callout
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }
            Text {
                width: parent.width
                text: item.caption
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                wrapMode: Text.Wrap
                color: Qt.alpha(Theme.fontAgentBubbleColor, 0.6)
                font.pixelSize: Theme.callout
                Accessible.ignored: true
            }
        }

        Rectangle {
            id: unreadDot

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: 8
            width: 12
            height: 12
            radius: 6
            color: Theme.redColor
            border.width: 1
            border.color: "white"
            visible: item.isUnread
        }

        FocusRing {
            anchors.margins: 0
            tint: Theme.fontBasicColor
            isShown: item.isCurrent
        }
    }

    MouseArea {
        anchors.fill: row
        cursorShape: Qt.PointingHandCursor
        onClicked: item.clicked()
    }
}
