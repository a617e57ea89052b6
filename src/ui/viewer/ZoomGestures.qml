// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Gestures on a picture: pinches on a screen or a trackpad, drags, taps and the wheel.
Item {
    id: gestures

    required property ZoomController imageState

    signal tapped()
    /// A horizontal drag of a picture that is not zoomed in, with its distance so far.
    signal swiped(real distance)
    signal swipeEnded()

    PinchHandler {
        id: pinch

        target: null
        onActiveScaleChanged: if (active) gestures.imageState.pinchChanged(activeScale)
        onTranslationChanged: if (active) gestures.dragTo(translation)
        onActiveChanged: {
            if (active) {
                remaining.drags = false
                return
            }
            gestures.imageState.pinchEnded()
            gestures.imageState.dragEnded()
            remaining.drags = firstFinger.active || secondFinger.active
        }
    }

    // After a pinch, the remaining finger drags. A DragHandler, which has not received its press, may
    // ignore it.
    QtObject {
        id: remaining

        property bool drags: false
        property PointHandler finger
        property point start

        function update(handler: PointHandler) {
            if (!drags)
                return
            const position = handler.point.position
            if (finger === handler) {
                gestures.dragTo(Qt.point(position.x - start.x, position.y - start.y))
                return
            }
            end()
            finger = handler
            start = position
        }

        function end() {
            finger = null
            gestures.imageState.dragEnded()
        }

        onDragsChanged: if (!drags) end()
    }

    PointHandler {
        id: firstFinger

        onPointChanged: remaining.update(firstFinger)
        onActiveChanged: if (!active && !secondFinger.active) remaining.drags = false
    }

    PointHandler {
        id: secondFinger

        onPointChanged: remaining.update(secondFinger)
        onActiveChanged: if (!active && !firstFinger.active) remaining.drags = false
    }

    DragHandler {
        id: drag

        property bool isSwipe: false
        property point start

        enabled: !remaining.drags
        target: null
        dragThreshold: gestures.imageState.minDragDistance
        onCentroidChanged: {
            if (!active)
                return
            const distance = Qt.point(centroid.position.x - start.x, centroid.position.y - start.y)
            if (isSwipe)
                gestures.swiped(distance.x)
            else
                gestures.dragTo(distance)
        }
        onActiveChanged: {
            if (active) {
                start = centroid.pressPosition
                isSwipe = !gestures.imageState.isZoomedIn
            } else if (isSwipe) {
                gestures.swipeEnded()
            } else {
                gestures.imageState.dragEnded()
            }
        }
    }

    function dragTo(translation) {
        imageState.dragChanged(Qt.point(translation.x, translation.y))
    }

    TapHandler {
        onSingleTapped: singleTapTimer.restart()
        onDoubleTapped: {
            singleTapTimer.stop()
            gestures.imageState.doubleTapped()
        }
    }

    // Delays a single tap, because a second one may follow.
    Timer {
        id: singleTapTimer

        interval: Application.styleHints.mouseDoubleClickInterval
        onTriggered: gestures.tapped()
    }

    // The wheel pans; with Ctrl, it zooms.
    MouseArea {
        id: wheelArea

        // The zoom by the wheel so far, as the scale of a pinch.
        property real pinchScale: 1

        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        cursorShape: !gestures.imageState.isZoomedIn ? Qt.ArrowCursor
                     : drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        onWheel: wheel => {
            if (wheel.modifiers & Qt.ControlModifier) {
                pinchScale *= Math.pow(1.25, wheel.angleDelta.y / 120)
                gestures.imageState.pinchAnimated(pinchScale)
                pinchEndTimer.restart()
                return
            }
            const hasPixelDelta = wheel.pixelDelta.x !== 0 || wheel.pixelDelta.y !== 0
            if (hasPixelDelta)
                gestures.imageState.pan(wheel.pixelDelta)
            else
                gestures.imageState.panAnimated(Qt.point(wheel.angleDelta.x / 2, wheel.angleDelta.y / 2))
        }

        Timer {
            id: pinchEndTimer

            interval: 150
            onTriggered: {
                wheelArea.pinchScale = 1
                gestures.imageState.pinchEnded()
            }
        }
    }
}
