// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows which part of a Flickable is visible, at its lower or trailing edge. Hidden while all of it
// is visible. As a vertical scroll bar it appears while the content moves, and becomes thicker while the
// mouse is on it, which can drag it.
RoundedRectangle {
    id: mark

    required property Flickable flickable
    required property int orientation
    property bool isScrollBar: false

    readonly property bool isVertical: orientation === Qt.Vertical
    /// The length that the bar can move along.
    property real room: isVertical ? flickable.height : flickable.width
    /// The visible part of the content and where it begins, as fractions of the content.
    property real ratio: isVertical ? flickable.visibleArea.heightRatio
                                    : flickable.visibleArea.widthRatio
    property real position: isVertical ? flickable.visibleArea.yPosition
                                       : flickable.visibleArea.xPosition
    readonly property bool isUsed: area.item?.isUsed ?? false
    property real thickness: isUsed ? 7 : 3
    // Long texts would shrink it to a dot.
    readonly property real length: Math.max(ratio * room, Math.min(24, room))
    readonly property real place:
        ratio < 1 ? Math.max(0, Math.min(1, position / (1 - ratio))) * (room - length) : 0

    x: flickable.x + (!isVertical ? place : LayoutMirroring.enabled ? 0 : flickable.width - thickness)
    y: flickable.y + (isVertical ? place : flickable.height - 4)
    width: isVertical ? thickness : length
    height: isVertical ? length : thickness
    radius: thickness / 2
    color: Theme.fontBasicColor
    opacity: isUsed ? 0.5 : !isScrollBar || flickable.moving || hideDelay.running ? 0.3 : 0
    visible: ratio < 1

    Behavior on opacity {
        enabled: mark.isScrollBar

        NumberAnimation { duration: Metrics.FadeDuration }
    }

    Behavior on thickness {
        NumberAnimation { duration: Metrics.FadeDuration }
    }

    Timer {
        id: hideDelay

        interval: 800
    }

    Connections {
        target: mark.flickable
        enabled: mark.isScrollBar

        function onMovingChanged() { hideDelay.restart() }
    }

    Loader {
        id: area

        active: mark.isScrollBar
        anchors.fill: parent
        anchors.margins: -6
        sourceComponent: MouseArea {
            readonly property bool isUsed: containsMouse || pressed
            property real grabbedAt

            hoverEnabled: true
            preventStealing: true
            // A finger drags the content instead.
            onPressed: mouse => {
                mouse.accepted = mouse.source === Qt.MouseEventNotSynthesized
                grabbedAt = mouse.y
            }
            onPositionChanged: mouse => {
                if (!pressed)
                    return
                const hidden = mark.flickable.height / mark.ratio - mark.flickable.height
                const moved = (mouse.y - grabbedAt) / (mark.room - mark.length)
                const next = Math.max(0, Math.min(1 - mark.ratio, mark.position + moved * (1 - mark.ratio)))
                mark.flickable.contentY += (next - mark.position) / (1 - mark.ratio) * hidden
            }
        }
    }
}
