// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The row that shows that the AI is writing a reply.
Item {
    id: message

    implicitHeight: caption.y + caption.height + Metrics.Spacing
    Accessible.role: Accessible.ListItem
    Accessible.name: caption.text

    MessageAvatar {
        anchors.left: parent.left
        anchors.leftMargin: Metrics.Padding
        anchors.bottom: bubble.bottom
        kind: Avatar.AI
    }

    BubbleBackground {
        id: bubble

        y: Metrics.Spacing
        anchors.left: parent.left
        anchors.leftMargin: Metrics.Padding + Metrics.AvatarInset
        width: dots.implicitWidth + 2 * Metrics.Padding
        height: dots.implicitHeight + 2 * Metrics.Padding
        isRight: message.LayoutMirroring.enabled
        color: Theme.bubbleAgentColor

        TypingDotsView {
            id: dots

            anchors.centerIn: parent
        }
    }

    MessageCaption {
        id: caption

        y: bubble.y + bubble.height + Metrics.Spacing
        anchors.left: parent.left
        anchors.leftMargin: Metrics.Padding + Metrics.AvatarInset
        width: message.width - 2 * Metrics.Padding - Metrics.AvatarInset
        text: Strings.string("ticket_ai_is_typing")
    }
}
