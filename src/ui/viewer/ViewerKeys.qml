// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The key bindings of the viewer.
QtObject {
    id: keys

    required property ZoomController imageState

    signal backRequested()
    signal controlsToggled()
    signal copyRequested()
    signal saveRequested()

    readonly property real zoomStep: 1.25
    readonly property real panStep: 80

    readonly property var actions: ({
        [Qt.Key_Escape]: backRequested,
        [Qt.Key_Back]: backRequested,
        [Qt.Key_Space]: controlsToggled,
        [Qt.Key_H]: controlsToggled,
        [Qt.Key_Plus]: () => zoom(zoomStep),
        [Qt.Key_Equal]: () => zoom(zoomStep),
        [Qt.Key_Minus]: () => zoom(1 / zoomStep),
        [Qt.Key_0]: () => imageState.reset(),
    })

    // An arrow key moves the view in its direction, and thus the picture the other way.
    readonly property var panning: ({
        [Qt.Key_Left]: Qt.point(panStep, 0),
        [Qt.Key_Right]: Qt.point(-panStep, 0),
        [Qt.Key_Up]: Qt.point(0, panStep),
        [Qt.Key_Down]: Qt.point(0, -panStep),
    })

    function zoom(factor) {
        imageState.pinchAnimated(factor)
        imageState.pinchEnded()
    }

    function handleKey(event) {
        const action = event.matches(StandardKey.Copy) ? copyRequested
                       : event.matches(StandardKey.Save) ? saveRequested
                       : actions[event.key]
        const direction = imageState.isZoomedIn ? panning[event.key] : undefined
        if (action)
            action()
        else if (direction)
            imageState.panAnimated(direction)
        else
            return
        event.accepted = true
    }
}
