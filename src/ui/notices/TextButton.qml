// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A button with a short text.
Pressable {
    id: button

    required property color color
    property int textSize: Math.min(Theme.callout, 24)

    implicitWidth: label.implicitWidth + 2 * Metrics.Spacing
    implicitHeight: Math.max(Metrics.ButtonSize, label.implicitHeight + 2 * Metrics.SmallSpacing)
    focusRing.tint: color

    Rectangle {
        anchors.fill: parent
        radius: Metrics.ItemRadius
        color: Qt.alpha(button.color, button.isPressed ? 0.24 : button.isHovered ? 0.16 : 0.1)
    }

    Text {
        id: label

        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width)
        text: button.name
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: button.color
        font.pixelSize: button.textSize
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }
}
