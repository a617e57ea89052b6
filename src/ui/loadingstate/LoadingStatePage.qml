// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Loads one view of a LoadingStateView, and animates its appearance and removal.
Loader {
    id: page

    /// See LoadingStateView.transitions.
    property real initialScale: 1
    property real removalScale: 1
    property bool isImmediate: false

    function leave() {
        enterAnimation.stop()
        z = 0
        enabled = false
        exitAnimation.start()
    }

    Component.onCompleted: {
        if (!isImmediate)
            enterAnimation.start()
    }

    component Step: NumberAnimation {
        target: page
        duration: Metrics.TransitionDuration
        easing.type: Easing.InOutQuad
    }

    ParallelAnimation {
        id: enterAnimation

        Step { property: "scale"; from: page.initialScale; to: 1 }
        Step { property: "opacity"; from: 0; to: 1 }
    }

    ParallelAnimation {
        id: exitAnimation

        Step { property: "scale"; to: page.removalScale }
        Step { property: "opacity"; to: 0 }

        onFinished: page.destroy()
    }
}
