// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Gestures on a picture: pinches on a screen or a trackpad, drags, taps and the wheel.
Item {
    id: gestures

    required property ZoomController imageState

    signal tapped()
    /// A drag of a picture that is not zoomed in, which pans nothing: its distance so far, and its
    /// end.
    signal swiped(real distance)
    signal swipeEnded()

    PinchHandler {
        id: pinch

        target: null
        onActiveScaleChanged: if (active) gestures.imageState.pinchChanged(activeScale)
        onTranslationChanged: if (active) gestures.dragTo(translation)
        onActiveChanged: {
            if (active) {
                drag.continuesPinch = true
                return
            }
            gestures.imageState.pinchEnded()
            gestures.imageState.dragEnded()
        }
    }

    DragHandler {
        id: drag

        // The finger that remains after a pinch drags on from where it is: the handler has not
        // received its press.
        property bool continuesPinch: false
        property bool isSwipe: false
        property point start

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
                start = continuesPinch ? centroid.position : centroid.pressPosition
                isSwipe = !continuesPinch && !gestures.imageState.isZoomedIn
            } else if (isSwipe) {
                gestures.swipeEnded()
            } else {
                gestures.imageState.dragEnded()
            }
        }
    }

    PointHandler {
        onActiveChanged: if (active) drag.continuesPinch = false
    }

    function dragTo(translation) {
        imageState.dragChanged(Qt.point(translation.x, translation.y))
    }

    // A single tap is delayed, as a second one may follow.
    TapHandler {
        onSingleTapped: single.restart()
        onDoubleTapped: {
            single.stop()
            gestures.imageState.doubleTapped()
        }
    }

    Timer {
        id: single

        interval: Application.styleHints.mouseDoubleClickInterval
        onTriggered: gestures.tapped()
    }

    // The wheel zooms with Ctrl, else it pans.
    MouseArea {
        id: wheelArea

        property real pinched: 1

        anchors.fill: parent
        acceptedButtons: Qt.NoButton
        cursorShape: !gestures.imageState.isZoomedIn ? Qt.ArrowCursor
                     : drag.active ? Qt.ClosedHandCursor : Qt.OpenHandCursor
        onWheel: wheel => {
            if (wheel.modifiers & Qt.ControlModifier) {
                pinched *= Math.pow(1.25, wheel.angleDelta.y / 120)
                gestures.imageState.pinchAnimated(pinched)
                wheelRest.restart()
                return
            }
            const exact = wheel.pixelDelta.x !== 0 || wheel.pixelDelta.y !== 0
            if (exact)
                gestures.imageState.pan(wheel.pixelDelta)
            else
                gestures.imageState.panAnimated(Qt.point(wheel.angleDelta.x / 2, wheel.angleDelta.y / 2))
        }

        Timer {
            id: wheelRest

            interval: 150
            onTriggered: {
                wheelArea.pinched = 1
                gestures.imageState.pinchEnded()
            }
        }
    }
}
