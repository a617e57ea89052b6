// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of the header until the settings are loaded.
Rectangle {
    id: header

    readonly property real inset: Theme.columnInset(width, Metrics.WidePadding)

    readonly property int buttonHeight: 32
    readonly property int lineTop: Metrics.Padding + buttonHeight + 12
    readonly property int lineHeight: 14

    implicitHeight: lineTop + lineHeight + Metrics.Padding
    color: Theme.backgroundColor

    SkeletonBox {
        anchors.left: parent.left
        anchors.leftMargin: header.inset
        y: Metrics.Padding + (header.buttonHeight - height) / 2
        width: 120
        height: 20
        tint: Theme.secondaryColor
    }
    SkeletonBox {
        anchors.right: parent.right
        anchors.rightMargin: header.inset
        y: Metrics.Padding
        width: 80
        height: header.buttonHeight
        tint: Theme.secondaryColor
    }
    SkeletonBox {
        anchors.left: parent.left
        anchors.leftMargin: header.inset
        y: header.lineTop
        width: Math.min(200, parent.width - 2 * header.inset)
        height: header.lineHeight
        tint: Theme.secondaryColor
    }
}
