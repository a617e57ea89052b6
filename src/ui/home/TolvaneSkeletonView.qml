// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The whole screen until the settings have arrived.
Rectangle {
    id: screen

    color: Theme.primaryColor
    Accessible.role: Accessible.StaticText
    Accessible.name: Texts.string("accessibility_loading")

    Column {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width

        TolvaneHeaderSkeletonView { width: parent.width }
        TolvaneListSkeletonView { width: parent.width }
        TolvaneNewTicketButtonSkeletonView { width: parent.width }
    }
}
