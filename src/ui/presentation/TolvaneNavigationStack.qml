// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The home screen, and what is stacked above it. Pages come in from the trailing side and go out
// there; what they cover gives way a little. What is covered is neither drawn nor read aloud.
FocusScope {
    id: stack

    required property ScreenData screen
    readonly property NavigationData navigation: screen.navigation
    readonly property int topmost: navigation.path.length

    /// The path, and after a way back also the page that is on its way out. Nothing is bound to it:
    /// a page keeps what it shows until it is gone.
    readonly property var shown: ({path: []})
    /// How many pages are in, with what is still on its way.
    property real depth: topmost

    Behavior on depth {
        NumberAnimation {
            duration: 350
            easing.type: Easing.OutCubic
        }
    }

    function countOfCommon(path: var): int {
        let count = 0
        while (count < Math.min(path.length, pages.count) && path[count] === shown.path[count])
            ++count
        return count
    }

    // Pages stay as they are for as long as they are on the path; where another one takes the
    // place of one, it is new, and so are those above it.
    function show(path: var) {
        const common = countOfCommon(path)
        if (pages.count > common)
            pages.remove(common, pages.count - common)
        shown.path = path
        while (pages.count < path.length)
            pages.append({level: pages.count + 1})
    }

    // A page that was left is shown until it is out, which one that was not yet in is at once.
    function follow() {
        const path = Array.from(navigation.path)
        if (depth === path.length || countOfCommon(path) < path.length)
            show(path)
    }

    ListModel {
        id: pages
    }

    function placeOf(level: int): real {
        const side = LayoutMirroring.enabled ? -width : width
        const isIn = Math.max(0, Math.min(1, depth - level + 1))
        return side * (1 - isIn) - side * 0.3 * coverOf(level)
    }

    function coverOf(level: int): real {
        return Math.max(0, Math.min(1, depth - level))
    }

    onDepthChanged: follow()

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
        model: pages

        NavigationPage {
            required property int level

            x: stack.placeOf(level)
            width: stack.width
            height: stack.height
            visible: stack.coverOf(level) < 1
            destination: stack.shown.path[level - 1]
            screen: stack.screen
            focus: isOnTop
            enabled: isOnTop
            isOnTop: level === stack.topmost
        }
    }
}
