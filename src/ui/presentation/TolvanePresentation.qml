// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Slides the messenger in over the content of the window, and out again: over the whole window, or as
// a panel in a corner of it. No input reaches the content below the messenger. In an item of the host
// it fills that, and does not slide.
FocusScope {
    id: presentation

    required property ScreenData screen
    property bool wasShown: false
    readonly property bool isLeaving: wasShown && !screen.isShown

    readonly property size windowSize: Qt.size(parent?.width ?? 0, parent?.height ?? 0)
    readonly property rect area:
        PanelRules.area(windowSize, screen.prefersPanel, Strings.isRightToLeft !== ViewOptions.isPanelLeading)
    readonly property bool isPanel: screen.prefersPanel && PanelRules.hasRoom(windowSize)

    // The software renderer clips to rectangles only.
    readonly property int radius:
        isPanel && GraphicsInfo.api !== GraphicsInfo.Software ? Metrics.PanelRadius : 0

    x: area.x
    y: area.y
    width: area.width
    height: area.height
    // Above the host's popups.
    z: 2000000
    focus: true
    LayoutMirroring.enabled: Strings.isRightToLeft
    LayoutMirroring.childrenInherit: true
    // In an item of the host, these keys are the host's.
    Keys.onEscapePressed: event => closeWith(event)
    Keys.onBackPressed: event => closeWith(event)

    function closeWith(event) {
        event.accepted = !screen.isEmbedded
        if (event.accepted)
            screen.close()
    }

    Connections {
        target: presentation.screen

        function onIsShownChanged() {
            presentation.wasShown = true
        }
    }

    /// The item of the host that gets the focus when it leaves the panel.
    property Item hostItem: null

    Component.onCompleted: hostItem = Window.activeFocusItem

    function switchFocus() {
        const focused = Window.activeFocusItem
        if (activeFocus) {
            (hostItem ?? Window.contentItem.nextItemInFocusChain()).forceActiveFocus(
                Qt.TabFocusReason)
        } else {
            hostItem = focused
            forceActiveFocus(Qt.TabFocusReason)
        }
    }

    Shortcut {
        sequences: ["F6", "Ctrl+Tab"]
        enabled: presentation.isPanel && presentation.screen.isShown
        onActivated: presentation.switchFocus()
        onActivatedAmbiguously: presentation.switchFocus()
    }

    SafeMargins {
        id: safeMargins

        window: presentation.isPanel || presentation.screen.isEmbedded
                ? null : presentation.Window.window
    }

    PointerBlocker { }

    // Tab does not lead to the host's controls below; from a panel and from an item of the host it does.
    FocusFence {
        id: firstFence

        otherEnd: lastFence
        isFirst: true
        activeFocusOnTab: !presentation.isPanel && !presentation.screen.isEmbedded
    }

    FocusScope {
        id: content

        width: parent.width
        height: parent.height
        // Below the window.
        y: presentation.screen.isEmbedded ? 0 : presentation.windowSize.height - presentation.area.y
        focus: true

        PanelFrame {
            anchors.fill: parent
            isPanel: presentation.isPanel
            radius: presentation.radius

            // Behind a notch and the system's bars, where the screen does not reach.
            Rectangle {
                anchors.fill: parent
                visible: !safeMargins.isEmpty
                color: Theme.backgroundColor
            }
            TolvaneScreen {
                anchors {
                    fill: parent
                    leftMargin: safeMargins.left
                    topMargin: safeMargins.top
                    rightMargin: safeMargins.right
                    bottomMargin: safeMargins.bottom
                }
                focus: true
                screen: presentation.screen
            }
        }
    }

    FocusFence {
        id: lastFence

        otherEnd: firstFence
        isFirst: false
        activeFocusOnTab: !presentation.isPanel && !presentation.screen.isEmbedded
    }

    // While the messenger leaves, its controls react to nothing any more.
    PointerBlocker {
        visible: presentation.isLeaving
        // A panel does not take the focus from the host.
        onVisibleChanged: {
            if (visible && (presentation.activeFocus || !presentation.isPanel))
                forceActiveFocus()
        }
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
        enabled: !presentation.screen.isEmbedded
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
