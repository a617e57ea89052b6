// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows which part of a Flickable is visible, at its lower or trailing edge. Hidden while all of it
// is visible.
Rectangle {
    id: mark

    required property Flickable flickable
    required property int orientation

    readonly property bool isVertical: orientation === Qt.Vertical
    readonly property real room: isVertical ? flickable.height : flickable.width
    readonly property real ratio: isVertical ? flickable.visibleArea.heightRatio
                                             : flickable.visibleArea.widthRatio
    readonly property real position: isVertical ? flickable.visibleArea.yPosition
                                                : flickable.visibleArea.xPosition
    // Long texts would shrink it to a dot.
    readonly property real length: Math.max(ratio * room, Math.min(24, room))
    readonly property real place:
        ratio < 1 ? Math.max(0, Math.min(1, position / (1 - ratio))) * (room - length) : 0

    x: flickable.x + (!isVertical ? place : LayoutMirroring.enabled ? 0 : flickable.width - 3)
    y: flickable.y + (isVertical ? place : flickable.height - 4)
    width: isVertical ? 3 : length
    height: isVertical ? length : 3
    radius: 1.5
    color: Theme.fontBasicColor
    opacity: 0.3
    visible: ratio < 1
}
