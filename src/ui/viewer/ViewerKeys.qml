// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The key bindings of the viewer.
QtObject {
    id: keys

    required property ZoomController imageState
    required property PictureSequence pictures
    required property bool isMirrored

    signal backRequested()
    signal controlsToggled()
    signal copyRequested()
    signal saveRequested()
    /// Requests the picture that comes `by` pictures after the shown one.
    signal stepRequested(int by)

    readonly property real zoomStep: 1.25
    readonly property real panStep: 80

    function handleKey(event: KeyEvent) {
        event.accepted = true
        if (event.matches(StandardKey.Copy))
            copyRequested()
        else if (event.matches(StandardKey.Save))
            saveRequested()
        else
            event.accepted = handleSingleKey(event.key)
    }

    /// Returns false if no action is bound to the key.
    function handleSingleKey(key: int): bool {
        switch (key) {
        case Qt.Key_Escape:
        case Qt.Key_Back:
            backRequested()
            return true
        case Qt.Key_Space:
        case Qt.Key_H:
            controlsToggled()
            return true
        case Qt.Key_Plus:
        case Qt.Key_Equal:
            return zoom(zoomStep)
        case Qt.Key_Minus:
            return zoom(1 / zoomStep)
        case Qt.Key_0:
            imageState.reset()
            return true
        case Qt.Key_PageUp:
            return step(-1)
        case Qt.Key_PageDown:
            return step(1)
        case Qt.Key_Home:
            return step(-pictures.index)
        case Qt.Key_End:
            return step(pictures.count - 1 - pictures.index)
        // An arrow key moves the view in its direction, and thus the picture the other way.
        case Qt.Key_Left:
            return pan(panStep, 0) || step(isMirrored ? 1 : -1)
        case Qt.Key_Right:
            return pan(-panStep, 0) || step(isMirrored ? -1 : 1)
        case Qt.Key_Up:
            return pan(0, panStep)
        case Qt.Key_Down:
            return pan(0, -panStep)
        default:
            return false
        }
    }

    function zoom(factor: real): bool {
        imageState.pinchAnimated(factor)
        imageState.pinchEnded()
        return true
    }

    function step(by: int): bool {
        if (pictures.canStep(by))
            stepRequested(by)
        return pictures.count > 1
    }

    function pan(x: real, y: real): bool {
        if (imageState.isZoomedIn)
            imageState.panAnimated(Qt.point(x, y))
        return imageState.isZoomedIn
    }
}
