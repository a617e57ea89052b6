// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The placeholder of a conversation that is loading, below the message from the list of tickets.
Item {
    id: skeleton

    /// A MessageListModel, or null.
    property var preview: null

    implicitHeight: rows.implicitHeight + 2 * Metrics.MessageSpacing
    Accessible.role: Accessible.StaticText
    Accessible.name: Strings.string("accessibility_loading")

    Column {
        id: rows

        x: (skeleton.width - width) / 2
        y: Metrics.MessageSpacing
        width: Math.min(skeleton.width, Theme.columnWidth)
        spacing: Metrics.MessageSpacing

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

                x: Metrics.Padding
                width: rows.width - 2 * Metrics.Padding
                isUser: index % 2 === 0
                hasAvatar: !isUser
            }
        }
    }
}
