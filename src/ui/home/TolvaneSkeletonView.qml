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
        // The end is what is cut where there is no room for it all.
        y: Math.max(0, (parent.height - height) / 2)
        width: parent.width

        TolvaneHeaderSkeletonView { width: parent.width }
        TolvaneListSkeletonView {
            x: Theme.columnInset(parent.width, 0)
            width: parent.width - 2 * x
        }
        TolvaneNewTicketButtonSkeletonView {
            x: Theme.columnInset(parent.width, 0)
            width: parent.width - 2 * x
        }
    }
}
