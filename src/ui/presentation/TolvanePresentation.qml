// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Slides the messenger in over the content of the window, and out again. No input reaches the
// content below.
FocusScope {
    id: presentation

    required property ScreenData screen
    property bool wasShown: false

    anchors.fill: parent
    // Above the host's popups.
    z: 2000000
    focus: true
    LayoutMirroring.enabled: Strings.isRightToLeft
    LayoutMirroring.childrenInherit: true
    Keys.onEscapePressed: screen.close()

    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        acceptedButtons: Qt.AllButtons
        onWheel: wheel => wheel.accepted = true
    }

    TolvaneScreen {
        id: content

        width: parent.width
        height: parent.height
        y: parent.height
        focus: true
        screen: presentation.screen
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
            duration: 350
            easing.type: Easing.OutCubic
        }
    }
}
