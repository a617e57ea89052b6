// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The placeholder of a message.
Item {
    id: message

    required property bool isUser
    required property bool hasAvatar

    readonly property color background: isUser ? Theme.bubbleUserColor : Theme.bubbleAgentColor
    readonly property bool showsAvatar: hasAvatar && !isUser
    readonly property list<int> lines: isUser ? [200, 150] : [250, 180, 120]
    readonly property int lineHeight: 16

    implicitHeight: bubble.height + Metrics.SmallSpacing + box.height
    Accessible.ignored: true

    SkeletonAvatar {
        anchors.left: parent.left
        anchors.bottom: bubble.bottom
        visible: message.showsAvatar
        tint: Theme.bubbleAgentColor
    }

    RoundedRectangle {
        id: bubble

        anchors.left: message.isUser ? undefined : parent.left
        anchors.leftMargin: message.showsAvatar ? Metrics.AvatarInset : 0
        anchors.right: message.isUser ? parent.right : undefined
        width: Math.min(message.lines[0] + 2 * Metrics.Padding, message.width - anchors.leftMargin)
        height: message.lines.length * (message.lineHeight + Metrics.LineSpacing) - Metrics.LineSpacing
                + 2 * Metrics.Padding
        radius: Metrics.BubbleRadius
        color: Qt.alpha(message.background, 0.5)

        Column {
            anchors.fill: parent
            anchors.margins: Metrics.Padding
            spacing: Metrics.LineSpacing

            Repeater {
                model: message.lines

                SkeletonBox {
                    required property real modelData

                    anchors.left: parent.left
                    width: Math.min(modelData, bubble.width - 2 * Metrics.Padding)
                    height: message.lineHeight
                    tint: message.isUser ? Theme.fontUserBubbleColor : Theme.fontAgentBubbleColor
                }
            }
        }

        // Only over the bubble: beside it, the shimmer would look like a box.
        Shimmer { }
    }

    SkeletonBox {
        id: box

        anchors.left: message.isUser ? undefined : parent.left
        anchors.leftMargin: message.hasAvatar ? Metrics.AvatarInset : 0
        anchors.right: message.isUser ? parent.right : undefined
        anchors.top: bubble.bottom
        anchors.topMargin: Metrics.SmallSpacing
        width: 100
        height: 12
        tint: Theme.fontBasicColor
    }
}
