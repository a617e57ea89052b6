// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A conversation in the list: the icon of the other side, the last message, its sender and its age.
// The arrow keys of the list move between these rows.
Pressable {
    id: item

    required property int index
    required property var preview
    /// An Avatar.Kind.
    required property int icon
    required property url picture
    required property string content
    required property string caption
    required property string timestamp
    required property bool isUnread
    required property string description

    property bool isCurrent: false

    name: description
    surface: row
    focusRing.anchors.fill: row
    focusRing.anchors.margins: 0
    focusRing.tint: Theme.fontBasicColor
    focusRing.isShown: isCurrent
    implicitHeight: row.height + Metrics.Spacing
    activeFocusOnTab: false
    Accessible.role: Accessible.ListItem
    // Hides a pooled row from screen readers.
    ListView.onPooled: visible = false
    ListView.onReused: visible = true

    RoundedRectangle {
        id: row

        x: Theme.columnInset(item.width, Metrics.Padding)
        width: parent.width - 2 * x
        height: Math.max(Metrics.AvatarSize, texts.implicitHeight) + 2 * Metrics.Padding
        radius: Metrics.ItemRadius
        color: Qt.tint(Theme.bubbleAgentColor, Qt.alpha(Theme.fontAgentBubbleColor,
                                                        item.isPressed ? 0.14 : item.isHovered ? 0.07 : 0))

        TicketIcon {
            id: ticketIcon

            anchors.left: parent.left
            anchors.leftMargin: Metrics.SmallPadding
            anchors.verticalCenter: parent.verticalCenter
            kind: item.icon
            picture: item.picture
        }

        Column {
            id: texts

            anchors.verticalCenter: parent.verticalCenter
            anchors.left: ticketIcon.right
            anchors.right: unreadDot.left
            anchors.margins: Metrics.Spacing
            spacing: Metrics.LineSpacing

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
                id: age

                width: parent.width
                text: item.caption
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                wrapMode: Text.Wrap
                color: Qt.alpha(Theme.fontAgentBubbleColor, 0.6)
                font.pixelSize: Theme.callout
                Accessible.ignored: true

                TimeToolTip {
                    line: age
                    timestamp: item.timestamp
                }
            }
        }

        RoundedRectangle {
            id: unreadDot

            anchors.verticalCenter: parent.verticalCenter
            anchors.right: parent.right
            anchors.rightMargin: Metrics.SmallPadding
            width: 12
            height: 12
            radius: 6
            color: "white"
            visible: item.isUnread

            RoundedRectangle {
                anchors.fill: parent
                anchors.margins: 1
                radius: 5
                color: Theme.redColor
            }
        }
    }
}
