// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of the header until the settings have arrived.
Rectangle {
    id: header

    readonly property real inset: Theme.columnInset(width, 20)

    implicitHeight: 32 + 32 + 12 + 14
    color: Theme.backgroundColor

    SkeletonBox {
        anchors.left: parent.left
        anchors.leftMargin: header.inset
        y: 16 + 6
        width: 120
        height: 20
        tint: Theme.secondaryColor
    }
    SkeletonBox {
        anchors.right: parent.right
        anchors.rightMargin: header.inset
        y: 16
        width: 80
        height: 32
        tint: Theme.secondaryColor
    }
    SkeletonBox {
        anchors.left: parent.left
        anchors.leftMargin: header.inset
        y: 16 + 32 + 12
        width: Math.min(200, parent.width - 2 * header.inset)
        height: 14
        tint: Theme.secondaryColor
    }
}
