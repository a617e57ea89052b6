// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Leaves the viewer.
ViewerControl {
    id: back

    signal clicked()

    Pressable {
        id: button

        width: label.width + 2 * label.x
        height: Metrics.ButtonSize
        focus: true
        name: text.text
        focusRing.tint: "white"
        focusRing.ground: back.lightestGround
        focusRing.anchors.margins: 1
        focusRing.radius: focusRing.height / 2
        onClicked: back.clicked()

        Rectangle {
            anchors.fill: parent
            radius: height / 2
            color: "white"
            opacity: button.isHovered ? 0.12 : 0
        }

        Row {
            id: label

            x: 12
            height: parent.height
            spacing: Metrics.LineSpacing
            opacity: button.isPressed ? 0.4 : 1

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                width: Metrics.IconSize
                height: Metrics.IconSize
                name: "chevron-left"
                color: "white"
                rotation: back.LayoutMirroring.enabled ? 180 : 0
            }
            Text {
                id: text

                anchors.verticalCenter: parent.verticalCenter
                text: Strings.hostString("Back")
                textFormat: Text.PlainText
                color: "white"
                font.pixelSize: Theme.body
                Accessible.ignored: true
            }
        }
    }
}
