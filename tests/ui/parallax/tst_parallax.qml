// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tolvane.Private

Item {
    id: window

    width: 300
    height: 600

    property int made
    property int pressed
    property int tapped

    ParallaxScrollView {
        id: view

        anchors.fill: parent
        isLandscape: false
        configuration: Parallax.configuration(Parallax.heights(240, 80), Parallax.heights(160, 60),
                                              0.5, 1, 0.3, "#ff0000", "#ffffff")
        header: Item {
            MouseArea {
                objectName: "button"
                anchors { right: parent.right; bottom: parent.bottom; bottomMargin: 30 }
                width: 60
                height: 60
                onPressed: ++window.pressed
            }
        }
        delegate: Rectangle {
            required property int index

            width: ListView.view ? ListView.view.width : 0
            height: 50
            color: "#0000ff"
            Component.onCompleted: ++window.made

            TapHandler {
                onTapped: ++window.tapped
            }
        }
    }

    Component {
        id: note

        Rectangle {
            implicitHeight: 70
            color: "#00ff00"
        }
    }

    SignalSpy {
        id: states

        target: view
        signalName: "scrollStateChanged"
    }

    TestCase {
        name: "Parallax"
        when: windowShown

        function init() {
            view.isLandscape = false
            view.bottomContentMargin = 0
            view.content = null
            view.model = 0
            view.list.cancelFlick()
            view.list.contentY = view.list.originY
            compare(view.offset, 0)
            window.pressed = 0
            window.tapped = 0
            states.clear()
        }

        function drag(x, y, distance) {
            mousePress(window, x, y)
            for (let step = 1; step <= 10; ++step)
                mouseMove(window, x, y + distance * step / 10, 20)
        }

        function test_theHeaderCanAlwaysBeCovered_data() {
            return [
                {tag: "nothing", model: 0, content: null, end: -140},
                {tag: "content", model: 0, content: note, end: -140},
                {tag: "few rows", model: 3, content: null, end: -140},
                {tag: "few rows and content", model: 3, content: note, end: -140},
                {tag: "20 rows and content", model: 20, content: note, end: -140 - 70 - 1000 + 520},
                {tag: "a margin", model: 20, content: null, end: -140 - 1000 - 30 + 520, margin: 30},
                {tag: "a margin below content", model: 0, content: note, end: -140, margin: 30},
            ]
        }

        function test_theHeaderCanAlwaysBeCovered(data) {
            view.content = data.content
            view.model = data.model
            view.bottomContentMargin = data.margin ?? 0
            waitForRendering(view)
            compare(view.offset, 0)
            compare(view.headerItem.height, 240)
            if (data.content)
                compare(view.contentItem.height, data.model ? 70 : 520 - view.bottomContentMargin)
            view.list.positionViewAtEnd()
            view.list.contentY += 1000
            view.list.returnToBounds()
            tryCompare(view, "offset", data.end)
            compare(view.headerItem.height, 160)
            compare(view.scrollState, ParallaxScroll.Collapsed)
        }

        function test_dragged_data() {
            return [
                {tag: "rows", from: [150, 500], by: -110, changes: 1},
                {tag: "the header, through the transparent spacer", from: [50, 150], by: -110, changes: 1},
                {tag: "the header's button", from: [270, 180], by: -110, changes: 1},
                {tag: "down", from: [150, 300], by: 150, changes: 0},
            ]
        }
        function test_dragged(data) {
            view.model = 100
            waitForRendering(view)
            drag(data.from[0], data.from[1], data.by)
            verify(data.by < 0 ? view.offset < -60 && view.offset >= data.by : view.offset > 20,
                   "moved to " + view.offset)
            compare(view.headerItem.height, 240 + Math.max(-80, view.offset))
            compare(states.count, data.changes)
            mouseRelease(window, data.from[0], data.from[1] + data.by)
            compare(window.tapped, 0)
            if (data.by > 0)
                tryCompare(view, "offset", 0)
        }
    }
}
