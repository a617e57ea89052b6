// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The row that shows that the conversation is closed.
Item {
    id: row

    readonly property bool leavesDownwards: true

    implicitHeight: Math.max(label.implicitHeight, lock.height) + 2 * Metrics.Spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: label.text

    Item {
        anchors.centerIn: parent
        width: lock.width + Metrics.LineSpacing + label.width
        height: label.height

        Icon {
            id: lock

            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: Math.round(Theme.footnote * 8 / 7)
            height: width
            name: "lock"
            color: Theme.fontBasicColor
        }

        Text {
            id: label

            anchors.left: lock.right
            anchors.leftMargin: Metrics.LineSpacing
            width: Math.min(implicitWidth, row.width - 2 * Metrics.Padding - lock.width
                                           - Metrics.LineSpacing)
            text: Strings.string("ticket_closed")
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: Theme.fontBasicColor
            font.pixelSize: Theme.footnote
            Accessible.ignored: true
        }
    }
}
