// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The row that shows that the AI is writing an answer.
Item {
    id: message

    implicitHeight: caption.y + caption.implicitHeight + 10
    Accessible.role: Accessible.ListItem
    Accessible.name: caption.text

    MessageAvatar {
        anchors.left: parent.left
        anchors.leftMargin: 16
        anchors.bottom: bubble.bottom
        kind: "ai"
    }

    BubbleBackground {
        id: bubble

        y: 10
        anchors.left: parent.left
        anchors.leftMargin: 16 + 42
        width: dots.implicitWidth + 32
        height: dots.implicitHeight + 32
        isRight: message.LayoutMirroring.enabled
        color: Theme.bubbleAgentColor

        TypingDotsView {
            id: dots

            anchors.centerIn: parent
        }
    }

    MessageCaption {
        id: caption

        y: bubble.y + bubble.height + 10
        anchors.left: parent.left
        anchors.leftMargin: 16 + 42
        width: Math.min(implicitWidth, message.width - 32 - 42)
        text: Strings.string("ticket_ai_is_typing")
    }
}
