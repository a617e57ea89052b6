// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Slides the messenger in over the content of the window, and out again. No input reaches the
// content below.
FocusScope {
    id: presentation

    required property ScreenData screen
    property bool wasShown: false
    readonly property bool isLeaving: wasShown && !screen.isShown

    anchors.fill: parent
    // Above the host's popups.
    z: 2000000
    focus: true
    LayoutMirroring.enabled: Strings.isRightToLeft
    LayoutMirroring.childrenInherit: true
    Keys.onEscapePressed: screen.close()
    Keys.onBackPressed: screen.close()

    Connections {
        target: presentation.screen

        function onIsShownChanged() {
            presentation.wasShown = true
        }
    }

    PointerBlocker { }

    TolvaneScreen {
        id: content

        width: parent.width
        height: parent.height
        y: parent.height
        focus: true
        screen: presentation.screen
    }

    // While the messenger leaves, its controls react to nothing any more.
    PointerBlocker {
        visible: presentation.isLeaving
        onVisibleChanged: if (visible) forceActiveFocus()
        Keys.onPressed: event => event.accepted = true
    }

    states: State {
        name: "shown"
        when: presentation.screen.isShown

        PropertyChanges {
            target: content
            y: 0
        }
    }

    transitions: Transition {
        onRunningChanged: {
            if (!running && !presentation.screen.isShown)
                presentation.screen.didHide()
        }

        YAnimator {
            target: content
            duration: Metrics.SlideDuration
            easing.type: Easing.OutCubic
        }
    }
}
