// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of a conversation that is loading, below the message that is already known.
Item {
    id: skeleton

    /// A MessageListModel, or null.
    property var preview: null

    implicitHeight: rows.implicitHeight + 40
    Accessible.role: Accessible.StaticText
    Accessible.name: Strings.string("accessibility_loading")

    Column {
        id: rows

        x: (skeleton.width - width) / 2
        y: 20
        width: Math.min(skeleton.width, Theme.columnWidth)
        spacing: 20

        Repeater {
            model: skeleton.preview

            MessageItem {
                required property int index

                width: rows.width
                height: implicitHeight
                visible: index === 0
                enabled: false
                opacity: 0.4
            }
        }

        Repeater {
            model: 4

            SkeletonMessageBubble {
                required property int index

                x: 16
                width: rows.width - 32
                isUser: index % 2 === 0
                hasAvatar: !isUser
            }
        }
    }
}
