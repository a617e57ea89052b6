// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of an AsyncImage that sets none of its own.
Item {
    implicitWidth: indicator.implicitWidth
    implicitHeight: indicator.implicitHeight

    ProgressIndicator {
        id: indicator

        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width)
        height: Math.min(implicitHeight, parent.height)
    }
}
