// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Leaves the viewer.
ViewerControl {
    id: back

    signal clicked()

    Item {
        id: button

        width: label.width + 24
        height: 36
        focus: true
        activeFocusOnTab: true
        Accessible.role: Accessible.Button
        Accessible.name: text.text
        Accessible.focusable: true
        Accessible.onPressAction: back.clicked()
        Keys.onReturnPressed: back.clicked()
        Keys.onEnterPressed: back.clicked()
        Keys.onSpacePressed: back.clicked()

        FocusRing { tint: "white"; radius: height / 2 }

        Row {
            id: label

            x: 12
            height: parent.height
            spacing: 4
            opacity: area.pressed ? 0.4 : 1

            Icon {
                anchors.verticalCenter: parent.verticalCenter
                width: 18
                height: 18
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

        MouseArea {
            id: area

            anchors.fill: parent
            cursorShape: Qt.PointingHandCursor
            onClicked: back.clicked()
        }
    }
}
