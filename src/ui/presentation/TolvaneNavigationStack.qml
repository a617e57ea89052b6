// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The home screen and the pages above it. Pages slide in from the trailing edge and out to it, and
// the view below moves slightly to the side. Covered views are invisible, also for screen readers.
FocusScope {
    id: stack

    required property ScreenData screen
    readonly property NavigationData navigation: screen.navigation
    readonly property int pathLength: navigation.path.length

    /// The path of the existing pages, including a page that is still sliding out. Not a notifying
    /// property, because a page must keep its destination until it is destroyed.
    readonly property var shown: ({path: []})
    /// The number of shown pages; a fraction while a page slides in or out.
    property real depth: pathLength - pulled
    /// How much of the top page a finger has pulled out, from the leading edge.
    property real pulled: 0

    Behavior on depth {
        enabled: !edge.active

        NumberAnimation {
            duration: Metrics.SlideDuration
            easing.type: Easing.OutCubic
        }
    }

    function commonPrefixLength(path: var): int {
        let count = 0
        while (count < Math.min(path.length, pages.count) && path[count] === shown.path[count])
            ++count
        return count
    }

    // Keeps the pages up to the first difference between the paths, and replaces the others.
    function showPath(path: var) {
        const common = commonPrefixLength(path)
        if (pages.count > common)
            pages.remove(common, pages.count - common)
        shown.path = path
        while (pages.count < path.length)
            pages.append({level: pages.count + 1})
    }

    // After going back, keeps the page until it has slid out. Removes it immediately if it had not
    // begun to slide in.
    function syncWithNavigation() {
        const path = Array.from(navigation.path)
        if (depth === path.length || commonPrefixLength(path) < path.length)
            showPath(path)
    }

    ListModel {
        id: pages
    }

    function xOf(level: int): real {
        const side = LayoutMirroring.enabled ? -width : width
        const visibleFraction = Math.max(0, Math.min(1, depth - level + 1))
        return side * (1 - visibleFraction) - side * 0.3 * coveredFraction(level)
    }

    function coveredFraction(level: int): real {
        return Math.max(0, Math.min(1, depth - level))
    }

    onDepthChanged: syncWithNavigation()
    Component.onCompleted: syncWithNavigation()

    Connections {
        target: stack.navigation

        function onPathChanged() {
            stack.syncWithNavigation()
        }
    }

    // By URL, since a conversation that opens first needs neither this view nor its types. They are
    // loaded a second later, usually before the customer goes back.
    Loader {
        id: home

        readonly property bool isOnTop: stack.pathLength === 0

        function load() {
            if (status === Loader.Null) {
                setSource(Qt.resolvedUrl("../home/TolvaneContentView.qml"), {
                    screen: stack.screen,
                    focus: true,
                    isOnTop: Qt.binding(() => home.isOnTop)
                })
            }
        }

        x: stack.xOf(0)
        width: parent.width
        height: parent.height
        visible: stack.coveredFraction(0) < 1
        focus: isOnTop
        enabled: isOnTop
        onVisibleChanged: {
            if (visible)
                load()
        }
        Component.onCompleted: {
            if (stack.coveredFraction(0) < 1)
                load()
        }
    }

    Timer {
        interval: 1000
        running: home.status === Loader.Null
        onTriggered: home.load()
    }

    Repeater {
        model: pages

        NavigationPage {
            required property int level

            x: stack.xOf(level)
            width: stack.width
            height: stack.height
            visible: stack.coveredFraction(level) < 1
            destination: stack.shown.path[level - 1]
            screen: stack.screen
            focus: isOnTop
            enabled: isOnTop
            isOnTop: level === stack.pathLength
        }
    }

    // A swipe from the leading edge goes back.
    Item {
        anchors.left: parent.left
        width: 20
        height: parent.height
        enabled: stack.pathLength > 0

        DragHandler {
            id: edge

            readonly property real distance:
                stack.LayoutMirroring.enabled ? -activeTranslation.x : activeTranslation.x

            target: null
            acceptedDevices: PointerDevice.TouchScreen
            grabPermissions: PointerHandler.CanTakeOverFromAnything
            yAxis.enabled: false
            onDistanceChanged: {
                if (active)
                    stack.pulled = Math.max(0, Math.min(distance / stack.width, 1))
            }
            onActiveChanged: {
                if (active)
                    return
                if (stack.pulled > 0.3)
                    stack.navigation.goBack()
                stack.pulled = 0
            }
        }
    }
}
