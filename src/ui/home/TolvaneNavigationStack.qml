// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// The home screen, and what is stacked above it. Pages come in from the trailing side and go out
// there; what they cover gives way a little. What is covered is neither drawn nor read aloud.
FocusScope {
    id: stack

    required property ScreenData screen
    readonly property NavigationData navigation: screen.navigation
    readonly property int topmost: navigation.path.length

    /// The path, and after a way back also the page that is on its way out.
    property var shownPath: []
    /// How many pages are in, with what is still on its way.
    property real depth: topmost

    Behavior on depth {
        NumberAnimation {
            duration: 350
            easing.type: Easing.OutCubic
        }
    }

    function follow() {
        const path = navigation.path
        const common = Math.min(path.length, shownPath.length)
        for (let index = 0; index < common; ++index) {
            // Pages do not change; another one takes the place.
            if (path[index] !== shownPath[index])
                shownPath = shownPath.slice(0, index)
        }
        if (path.length > shownPath.length)
            shownPath = path
    }

    function placeOf(level: int): real {
        const side = LayoutMirroring.enabled ? -width : width
        const isIn = Math.max(0, Math.min(1, depth - level + 1))
        return side * (1 - isIn) - side * 0.3 * coverOf(level)
    }

    function coverOf(level: int): real {
        return Math.max(0, Math.min(1, depth - level))
    }

    onDepthChanged: {
        if (depth === topmost)
            shownPath = navigation.path
    }

    // Who touches the screen goes to a conversation next, more often than not. What it takes is read in
    // the background between press and release, and takes no memory before.
    PointHandler {
        property Component next

        onActiveChanged: {
            if (!next)
                next = Qt.createComponent(Qt.resolvedUrl("../conversation/TicketScreen.qml"),
                                          Component.Asynchronous, stack)
        }
    }

    Connections {
        target: stack.navigation

        function onPathChanged() {
            stack.follow()
        }
    }

    TolvaneContentView {
        x: stack.placeOf(0)
        width: parent.width
        height: parent.height
        visible: stack.coverOf(0) < 1
        screen: stack.screen
        focus: stack.topmost === 0
        enabled: isOnTop
        isOnTop: stack.topmost === 0
    }

    Repeater {
        model: stack.shownPath.length

        NavigationPage {
            id: page

            required property int index

            x: stack.placeOf(index + 1)
            width: stack.width
            height: stack.height
            visible: stack.coverOf(index + 1) < 1
            destination: stack.shownPath[index]
            screen: stack.screen
            focus: isOnTop
            enabled: isOnTop
            isOnTop: index === stack.topmost - 1
        }
    }
}
