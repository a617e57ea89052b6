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

    implicitHeight: Metrics.ButtonSize + 2 * Metrics.SmallPadding
    color: Theme.primaryColor

    PointerBlocker { }

    IconButton {
        id: back

        anchors.left: parent.left
        anchors.leftMargin: Metrics.SmallPadding
        anchors.verticalCenter: parent.verticalCenter
        icon: "chevron-left"
        mirrors: true
        color: Theme.accentColor
        focusRing.ground: Theme.primaryColor
        name: Strings.hostString("Back")
        shortcut: "Esc"
        onClicked: bar.backRequested()
    }

    TicketHeader {
        id: header

        anchors.left: back.right
        anchors.leftMargin: Metrics.SmallPadding
        anchors.right: parent.right
        anchors.rightMargin: Metrics.Padding
        anchors.verticalCenter: parent.verticalCenter
        onDismissRequested: bar.backRequested()
    }
}
