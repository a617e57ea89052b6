// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// Shows which part of a flickable is in sight, at its lower or trailing edge. Pale, and gone where
// all is in sight.
Rectangle {
    id: mark

    required property Flickable flickable
    required property int orientation

    readonly property bool isVertical: orientation === Qt.Vertical
    readonly property real ratio: isVertical ? flickable.visibleArea.heightRatio
                                             : flickable.visibleArea.widthRatio
    readonly property real place: isVertical ? flickable.visibleArea.yPosition
                                             : flickable.visibleArea.xPosition

    x: flickable.x + (isVertical ? flickable.width - 3 : place * flickable.width)
    y: flickable.y + (isVertical ? place * flickable.height : flickable.height - 4)
    width: isVertical ? 3 : ratio * flickable.width
    height: isVertical ? ratio * flickable.height : 3
    radius: 1.5
    color: Theme.fontBasicColor
    opacity: 0.3
    visible: ratio < 1
}
