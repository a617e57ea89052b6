// SPDX-License-Identifier: MIT
import QtQuick

// Loads one view of a LoadingStateView, and animates its appearance and removal.
Loader {
    id: page

    /// See LoadingStateView.transitions.
    required property var transition

    function leave() {
        enterAnimation.stop()
        z = 0
        enabled = false
        exitAnimation.start()
    }

    Component.onCompleted: {
        if (!transition.immediate)
            enterAnimation.start()
    }

    component Step: NumberAnimation {
        target: page
        duration: 300
        easing.type: Easing.InOutQuad
    }

    ParallelAnimation {
        id: enterAnimation

        Step { property: "scale"; from: page.transition.scale ?? 1; to: 1 }
        Step { property: "opacity"; from: 0; to: 1 }
    }

    ParallelAnimation {
        id: exitAnimation

        Step { property: "scale"; to: page.transition.removalScale ?? 1 }
        Step { property: "opacity"; to: 0 }

        onFinished: page.destroy()
    }
}
