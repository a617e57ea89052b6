// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The whole screen until the settings have arrived.
Rectangle {
    id: screen

    color: Theme.primaryColor
    Accessible.role: Accessible.StaticText
    Accessible.name: Strings.string("accessibility_loading")

    Column {
        // If there is not enough height, the lower end is cut off.
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
