// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The button that starts a new conversation.
Pressable {
    id: button

    required property string title
    required property string subtitle

    /// Limited, since a higher button covers more of the list.
    readonly property int textSize: Math.min(Theme.callout, 24)

    name: title
    focusRing.tint: Theme.fontBasicColor
    // With a gap, since the button may have the colour of the ring.
    focusRing.anchors.margins: -5
    focusRing.radius: Metrics.ItemRadius + 5
    implicitHeight: label.implicitHeight + 2 * Metrics.Spacing
    scale: scaleSpring.value
    Accessible.description: subtitle

    SpringValue {
        id: scaleSpring

        target: button.isPressed ? 0.96 : 1
        response: 0.3
        dampingFraction: 0.7
    }

    SpringValue {
        id: rotationSpring

        target: button.isPressed ? 45 : 0
        response: 0.15
        dampingFraction: 0.85
    }

    // A soft shadow, slightly lower than the button: nested rings of decreasing opacity. The
    // innermost one is wider, to leave no gap to the button.
    Repeater {
        model: 6

        RoundedRectangle {
            required property int index

            anchors.fill: parent
            anchors.topMargin: 2 - index
            anchors.bottomMargin: -2 - index
            anchors.leftMargin: -index
            anchors.rightMargin: -index
            radius: Metrics.ItemRadius + index
            rim: index === 0 ? 3 : 1
            color: Qt.rgba(0, 0, 0, (6 - index) * 0.02)
        }
    }

    RoundedRectangle {
        anchors.fill: parent
        radius: Metrics.ItemRadius
        color: Qt.tint(Theme.accentColor, Qt.alpha(Theme.primaryColor, button.isHovered ? 0.08 : 0))
    }

    Column {
        id: label

        anchors.left: parent.left
        anchors.right: plane.left
        anchors.leftMargin: Metrics.WidePadding
        anchors.rightMargin: Metrics.SmallSpacing
        anchors.verticalCenter: parent.verticalCenter
        spacing: Metrics.LineSpacing

        Text {
            width: parent.width
            text: button.title
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            color: Theme.primaryColor
            font.pixelSize: button.textSize
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
        Text {
            width: parent.width
            text: button.subtitle
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            color: Qt.alpha(Theme.primaryColor, 0.6)
            font.pixelSize: button.textSize
            Accessible.ignored: true
        }
    }

    Icon {
        id: plane

        anchors.right: parent.right
        anchors.rightMargin: Metrics.WidePadding
        anchors.verticalCenter: parent.verticalCenter
        width: 22
        height: 22
        name: "paperplane"
        color: Theme.primaryColor
        rotation: rotationSpring.value
    }
}
