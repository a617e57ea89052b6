// SPDX-License-Identifier: MIT
import QtQuick

// One view of a LoadingStateView, from its coming to its going.
Loader {
    id: page

    /// The scale that it comes from.
    required property real smallest
    /// Whether it goes the way it came; else it only fades.
    required property bool shrinks

    function leave() {
        shown.stop()
        z = 0
        enabled = false
        left.start()
    }

    Component.onCompleted: shown.start()

    ParallelAnimation {
        id: shown

        NumberAnimation {
            target: page
            property: "scale"
            from: page.smallest
            to: 1
            duration: 300
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: page
            property: "opacity"
            from: 0
            to: 1
            duration: 300
            easing.type: Easing.InOutQuad
        }
    }

    ParallelAnimation {
        id: left

        NumberAnimation {
            target: page
            property: "scale"
            to: page.shrinks ? page.smallest : 1
            duration: 300
            easing.type: Easing.InOutQuad
        }
        NumberAnimation {
            target: page
            property: "opacity"
            to: 0
            duration: 300
            easing.type: Easing.InOutQuad
        }

        onFinished: page.destroy()
    }
}
