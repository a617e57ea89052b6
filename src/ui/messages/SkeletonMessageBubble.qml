// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of a message.
Item {
    id: message

    required property bool isUser
    required property bool hasAvatar

    readonly property color background: isUser ? Theme.bubbleUserColor : Theme.bubbleAgentColor
    readonly property bool showsAvatar: hasAvatar && !isUser
    readonly property var lines: isUser ? [200, 150] : [250, 180, 120]

    implicitHeight: bubble.height + 8 + box.height
    Accessible.ignored: true

    SkeletonAvatar {
        anchors.left: parent.left
        anchors.bottom: bubble.bottom
        width: 32
        height: 32
        visible: message.showsAvatar
        tint: Theme.bubbleAgentColor
    }

    RoundedRectangle {
        id: bubble

        anchors.left: message.isUser ? undefined : parent.left
        anchors.leftMargin: message.showsAvatar ? 42 : 0
        anchors.right: message.isUser ? parent.right : undefined
        width: Math.min(message.lines[0] + 32, message.width - anchors.leftMargin)
        height: message.lines.length * 20 - 4 + 32
        radius: 16
        color: Qt.alpha(message.background, 0.5)

        Column {
            anchors.fill: parent
            anchors.margins: 16
            spacing: 4

            Repeater {
                model: message.lines

                SkeletonBox {
                    required property real modelData

                    anchors.left: parent.left
                    width: Math.min(modelData, bubble.width - 32)
                    height: 16
                    tint: message.isUser ? Theme.fontUserBubbleColor : Theme.fontAgentBubbleColor
                }
            }
        }

        // Over the bubble only: on the empty background beside it, it would look like a box.
        Shimmer { }
    }

    SkeletonBox {
        id: box

        anchors.left: message.isUser ? undefined : parent.left
        anchors.leftMargin: message.hasAvatar ? 42 : 0
        anchors.right: message.isUser ? parent.right : undefined
        anchors.top: bubble.bottom
        anchors.topMargin: 8
        width: 100
        height: 12
        tint: Theme.fontBasicColor
    }
}
