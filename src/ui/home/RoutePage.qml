// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// A destination above the home screen, with a bar to go back.
FocusScope {
    id: page

    required property var destination

    signal backRequested()

    Keys.onEscapePressed: backRequested()
    Keys.onBackPressed: backRequested()

    Rectangle {
        anchors.fill: parent
        color: Theme.chatBackgroundColor

        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: wheel => wheel.accepted = true
        }
    }

    Rectangle {
        width: parent.width
        height: 52
        color: Theme.primaryColor

        IconButton {
            x: 8
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            icon: "chevron-left"
            color: Theme.accentColor
            name: Texts.hostString("Back")
            onClicked: page.backRequested()
        }
    }

    Text {
        anchors.centerIn: parent
        width: parent.width - 32
        horizontalAlignment: Text.AlignHCenter
        text: page.destination?.ticketId ?? ""
        textFormat: Text.PlainText
        elide: Text.ElideMiddle
        color: Theme.fontBasicColor
        font.pixelSize: Theme.body
    }
}
