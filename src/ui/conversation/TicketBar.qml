// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The bar at the top of a conversation.
Rectangle {
    id: bar

    property alias title: header.title
    property alias subtitle: header.subtitle
    property alias isSupportAvailable: header.isSupportAvailable

    signal backRequested()

    implicitHeight: 52
    color: Theme.primaryColor

    // Keeps presses from the items below the bar.
    MouseArea {
        anchors.fill: parent
        Accessible.ignored: true
    }

    IconButton {
        id: back

        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        icon: "chevron-left"
        mirrors: true
        color: Theme.accentColor
        name: Strings.hostString("Back")
        onClicked: bar.backRequested()
    }

    TicketHeader {
        id: header

        anchors.left: back.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        onDismissRequested: bar.backRequested()
    }
}
