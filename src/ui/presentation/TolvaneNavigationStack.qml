// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The home screen and the pages above it. Pages slide in from the trailing edge and slide out to
// it; the view below moves aside a little. Covered views are neither drawn nor read by screen
// readers.
FocusScope {
    id: stack

    required property ScreenData screen
    readonly property NavigationData navigation: screen.navigation
    readonly property int topmost: navigation.path.length

    /// The path of the existing pages, which after going back includes the page that is still
    /// sliding out. Nothing is bound to it: a page keeps its destination until it is destroyed.
    readonly property var shown: ({path: []})
    /// The number of shown pages; a fraction while a page slides in or out.
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

    // Pages are kept for as long as they are on the path. From the first difference on, the pages
    // are created anew.
    function show(path: var) {
        const common = countOfCommon(path)
        if (pages.count > common)
            pages.remove(common, pages.count - common)
        shown.path = path
        while (pages.count < path.length)
            pages.append({level: pages.count + 1})
    }

    // After going back, the page is kept until it has slid out, or removed at once if it had not
    // begun to slide in.
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
