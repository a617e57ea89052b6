// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tolvane.Private
import Samples

Rectangle {
    id: window

    width: 360
    height: 600
    color: Theme.chatBackgroundColor

    Component {
        id: listComponent

        TicketMessageList {
            anchors.fill: parent
            onAttachmentOpened: imageUrl => testCase.openedUrl = imageUrl
            ticketState: "open"
            isAITyping: false
        }
    }

    TestCase {
        id: testCase

        name: "MessageList"
        when: windowShown

        property TicketMessageList list
        property var model
        property var shown: []
        property url openedUrl

        // Messages of very different heights.
        function message(n) {
            return {id: "m" + n, type: n % 3 ? "human agent" : "customer", name: "Maya",
                    content: "Message " + n + " ".repeat(n % 2) + "goes on. ".repeat(n % 7 * n % 40),
                    attachments: n % 10 == 4 ? ["http://127.0.0.1:9/a", "http://127.0.0.1:9/b"] : []}
        }

        function show(values) {
            shown = values
            Samples.setMessages(model, values)
        }

        function numbers(first, last) {
            return Array.from({length: last - first + 1}, (_, at) => message(first + at))
        }

        function open(values) {
            model = Samples.messageList()
            show(values)
            list = createTemporaryObject(listComponent, window, {model: model})
            waitForRendering(list)
            list.rows.ensurePolished()
        }

        function init() {
            window.width = 360
            window.height = 600
            openedUrl = ""
        }

        function lastRow() {
            return list.rows.itemAt(model.rowCount() + list.rows.trailing.length - 1)
        }

        function topOf(row) {
            return Math.round(1000 * row.mapToItem(list.rows, 0, 0).y) / 1000
        }

        function rowAt(y) {
            return list.rows.content.childAt(100, y - list.rows.content.y)
        }

        // From the end of the last row to the end of the list's window.
        function gapAtEnd() {
            const row = lastRow()
            return row ? list.height - list.bottomContentMargin - topOf(row) - row.height : NaN
        }

        function verifyAtEnd() {
            tryVerify(() => Math.abs(gapAtEnd()) < 0.01 && list.flickable.atYEnd, 2000,
                      "the list is at its end")
            compare(list.flickable.contentY, list.rows.contentY)
        }

        function rowItemCount() {
            return list.rows.content.children.length
        }

        function verifyNoGaps() {
            list.rows.ensurePolished()
            const rows = []
            for (let row = 0; row < model.rowCount(); ++row) {
                if (list.rows.itemAt(row))
                    rows.push(list.rows.itemAt(row))
            }
            for (let at = 1; at < rows.length; ++at)
                fuzzyCompare(topOf(rows[at]), topOf(rows[at - 1]) + rows[at - 1].height, 0.002)
        }

        function test_opensAtItsEnd_data() {
            return [{tag: "20", count: 20}, {tag: "10,000", count: 10000}]
        }
        function test_opensAtItsEnd(data) {
            open(numbers(1, data.count))
            verifyAtEnd()
            verifyNoGaps()
            verify(rowItemCount() < 30, rowItemCount() + " rows")
        }

        function test_fewMessagesAreAtTheTop() {
            open(numbers(1, 2))
            compare(topOf(list.rows.itemAt(0)), 10)
            show(numbers(1, 3))
            wait(400)
            compare(topOf(list.rows.itemAt(0)), 10)
            verify(gapAtEnd() > 0)
        }

        function test_endsAtTheEndAfter_data() {
            return [
                {tag: "a message", change: () => show(shown.concat(message(101)))},
                {tag: "several at once", change: () => show(shown.concat(numbers(101, 150)))},
                {tag: "another list", change: () => show(numbers(500, 700))},
                {tag: "a shorter list", change: () => show(numbers(97, 99))},
                {tag: "a change above", change: () => show([message(0)].concat(shown))},
                {tag: "a changed text", change: () => show(shown.slice(0, -1).concat(
                        [Object.assign({}, shown[shown.length - 1], {content: "x ".repeat(700)})]))},
                {tag: "typing and closed", change: () => { list.isAITyping = true; list.ticketState = "closed" }},
                {tag: "an answer to typing", change: () => {
                    list.isAITyping = true
                    wait(400)
                    show(shown.concat(message(101)))
                    list.isAITyping = false
                }},
                {tag: "a narrower window", change: () => window.width = 320},
                {tag: "a higher window", change: () => window.height = 900},
                {tag: "a margin", change: () => list.bottomContentMargin = 120},
                {tag: "the keyboard", change: () => { window.height = 320; list.keyboardShown() }},
            ]
        }
        function test_endsAtTheEndAfter(data) {
            open(numbers(1, 100))
            data.change()
            wait(400)
            if (data.tag === "a shorter list")
                tryVerify(() => list.flickable.contentY === Math.max(list.rows.start, list.rows.end))
            else
                verifyAtEnd()
            verifyNoGaps()
        }

        // After scrolling up, rows keep their position, unless the change scrolls the list to its
        // end.
        function test_scrolledUp_data() {
            return [
                {tag: "a margin", change: () => list.bottomContentMargin = 120},
                {tag: "a lower window", change: () => window.height = 500},
                {tag: "the same list", change: () => show(shown.map(m => Object.assign({}, m)))},
                {tag: "a message", isMoved: true, change: () => show(shown.concat(message(101)))},
                {tag: "a changed text", isMoved: true, change: () => show(
                        shown.slice(0, -1).concat({id: "m100", content: "new"}))},
                {tag: "typing", isMoved: true, change: () => list.isAITyping = true},
                {tag: "another state", isMoved: true, change: () => list.ticketState = "waiting"},
                {tag: "the keyboard", isMoved: true, change: () => list.keyboardShown()},
            ]
        }
        function test_scrolledUp(data) {
            open(numbers(1, 100))
            list.rows.scrollBy(-3000, 0)
            waitForRendering(list)
            list.rows.ensurePolished()
            const before = list.flickable.contentY
            const row = rowAt(300)
            const seenAt = topOf(row)
            data.change()
            wait(500)
            if (data.isMoved) {
                verifyAtEnd()
            } else {
                compare(list.flickable.contentY, before)
                compare(topOf(row), seenAt)
            }
        }

        function test_scrollsThroughAll() {
            open(numbers(1, 120))
            let most = 0
            for (let step = 0; step < 400 && !list.flickable.atYBeginning; ++step) {
                const row = rowAt(200)
                const seenAt = topOf(row)
                list.rows.scrollBy(-150, 0)
                list.rows.ensurePolished()
                wait(0) // Each frame may create further rows.
                most = Math.max(most, rowItemCount())
                verifyNoGaps()
                if (list.rows.indexOf(row) >= 0)
                    verify(topOf(row) - seenAt <= 150.01, "moved by " + (topOf(row) - seenAt))
            }
            compare(topOf(list.rows.itemAt(0)), 10)
            verify(most < 20, most + " rows")
        }

        function test_rowsAreReused() {
            const pictures = n => Array.from({length: n % 3}, (_, at) => "http://127.0.0.1:9/" + n + at)
            open(numbers(1, 300).map((each, at) => Object.assign(each, {attachments: pictures(at)})))
            const items = new Set()
            for (let step = 0; step < 100; ++step) {
                list.rows.scrollBy(-200, 0)
                list.rows.ensurePolished()
                for (let row = 0; row < model.rowCount(); ++row) {
                    const item = list.rows.itemAt(row)
                    if (!item)
                        continue
                    items.add(item)
                    verify(item.visible && item.opacity === 1)
                    compare(item.content.text.startsWith(shown[row].content.slice(0, 12)), true)
                    compare(item.isCustomer, shown[row].type === "customer")
                    compare(findAll(item, each => each instanceof AttachmentThumbnail && each.visible)
                                .map(cell => String(cell.imageUrl)), pictures(row))
                }
            }
            verify(list.rows.itemAt(299) === null)
            verify(items.size < 30, items.size + " items")
        }

        function test_aFlingEndsWithoutAJump() {
            open(numbers(1, 200))
            list.flickable.flick(0, 3000)
            let before = list.flickable.contentY
            while (list.flickable.moving) {
                const row = rowAt(300), seenAt = row ? topOf(row) : 0
                waitForRendering(list)
                list.rows.ensurePolished()
                if (row && list.rows.indexOf(row) >= 0)
                    fuzzyCompare(topOf(row) - seenAt, before - list.flickable.contentY, 0.01)
                before = list.flickable.contentY
            }
            verifyNoGaps()
            verify(!list.flickable.atYEnd)
        }

        function test_newMessageDuringADrag() {
            open(numbers(1, 100))
            mousePress(window, 180, 300)
            for (let step = 1; step <= 10; ++step)
                mouseMove(window, 180, 300 + 20 * step, 20)
            verify(list.flickable.dragging)
            const at = list.flickable.contentY
            show(shown.concat(message(101)))
            wait(400)
            compare(list.flickable.contentY, at)
            mouseRelease(window, 180, 500)
            verifyAtEnd()
        }

        function test_byWheel() {
            open(numbers(1, 100))
            mouseWheel(window, 180, 300, 0, 480)
            tryVerify(() => !list.flickable.moving && list.rows.contentY < list.rows.end - 100)
            const at = list.rows.contentY
            list.bottomContentMargin = 50
            wait(100)
            compare(list.rows.contentY, at)
            mouseWheel(window, 180, 300, 0, -4800)
            tryVerify(() => !list.flickable.moving && list.flickable.atYEnd)
            verifyAtEnd()
        }

        function test_byKeyboard() {
            open(numbers(1, 100))
            list.forceActiveFocus(Qt.TabFocusReason)
            compare(list.rows.currentIndex, 99)
            verify(list.rows.currentItem.showsFocus)
            for (let press = 0; press < 60; ++press) {
                keyClick(Qt.Key_Up)
                wait(5)
            }
            wait(300)
            const row = list.rows.currentItem
            verify(list.rows.currentIndex < 95)
            verify(topOf(row) + row.height > 0 && topOf(row) < list.height, "in sight at " + topOf(row))
            keyClick(Qt.Key_C, Qt.ControlModifier)
            show(numbers(0, 100))
            compare(list.rows.currentItem, row)
            keyClick(Qt.Key_Home)
            tryVerify(() => list.rows.itemAt(0) && Math.abs(topOf(list.rows.itemAt(0)) - 10) < 0.01)
            keyClick(Qt.Key_PageDown)
            tryCompare(list.rows, "contentY", list.rows.start + 540)
            keyClick(Qt.Key_End)
            verifyAtEnd()
            mouseDrag(list, list.width - 2, 590, 0, -600) // The scroll bar.
            verify(list.rows.end - list.rows.contentY > 3000)
        }

        function test_picturesAreOpened_data() {
            return [{tag: "clicked", open: cell => mouseClick(cell)},
                    {tag: "by keyboard", open: cell => { cell.forceActiveFocus(); keyClick(Qt.Key_Space) }},
                    {tag: "by a right click", open: cell => { mouseClick(cell, 9, 9, Qt.RightButton)
                                                              keyClick(Qt.Key_Return) }},
                    {tag: "by the menu key", open: cell => { cell.forceActiveFocus()
                                                             keyClick(Qt.Key_Menu)
                                                             verify(!cell.activeFocus)
                                                             keyClick(Qt.Key_Return) }}]
        }
        function test_picturesAreOpened(data) {
            const addresses = ["a", "b", "", "d", "e"].map(name => name && "http://127.0.0.1:9/" + name)
            open([{id: "m", attachments: addresses, content: ""}])
            const cells = findAll(lastRow(), item => item instanceof AttachmentThumbnail)
            compare(cells.map(cell => cell.visible), [true, true, false, true])
            compare(cells.map(cell => cell.remainingCount), [0, 0, 0, 1])
            compare(cells.map(cell => cell.width), [138, 138, 138, 138])
            const right = cells[1].mapToItem(window, cells[1].width, 0).x
            compare(right, 360 - 16)
            verify(!lastRow().bubble.visible)
            data.open(cells[3])
            compare(String(openedUrl), "http://127.0.0.1:9/d")
        }

        function findAll(item, test) {
            return Array.from({length: item.children.length}, (_, at) => item.children[at]).reduce(
                (found, child) => found.concat(test(child) ? [child] : findAll(child, test)), [])
        }

        function test_hostileTexts_data() {
            return [
                {tag: "one word", content: "x".repeat(100000)},
                {tag: "zero width", content: "\u200b".repeat(100000)},
                {tag: "nested", content: "**_~~".repeat(20000) + "a" + "~~_**".repeat(20000)},
                {tag: "lines", content: "\n".repeat(100000)},
            ]
        }
        function test_hostileTexts(data) {
            open(numbers(1, 50).concat([{id: "bad", type: "ai agent", content: data.content},
                                        message(51)]))
            verifyAtEnd()
            for (let page = 0; page < 5; ++page) {
                list.rows.scrollBy(-500, 0)
                waitForRendering(list)
                verifyNoGaps()
                for (const row of findAll(list.rows, item => item instanceof MessageItem)) {
                    verify(row.bubble.width <= 360 - 32 - 42)
                    verify(row.width === 360)
                }
            }
            list.keyboardShown()
            verifyAtEnd()
        }

        function test_bubblesAreAsWideAsTheirWidestLine() {
            window.height = 900
            open(["abcd", "abcd\nd", "`abcd`", "`abcd`\nd", "ابجد", "ابجد\nد"].map(
                     (content, at) => ({id: "m" + at, type: at % 4 ? "ai agent" : "customer", content})))
            for (const row of [0, 2, 4]) {
                verify(list.rows.itemAt(row).bubble.width < 100)
                compare(list.rows.itemAt(row + 1).bubble.width, list.rows.itemAt(row).bubble.width)
            }
        }

        function keys(keys) {
            list.forceActiveFocus()
            for (const key of [Qt.Key_Up].concat(keys))
                keyClick(key)
        }

        function test_links_data() {
            const one = "[here](https://x.y/z)"
            const two = one + " [there](https://x.y/2)"
            return [{tag: "clicked", content: one, opened: "https://x.y/z",
                     open: bubble => mouseClick(bubble, 24, 24)},
                    {tag: "by key", content: one, opened: "https://x.y/z",
                     open: () => keys([Qt.Key_Return])},
                    {tag: "one of two", content: two, opened: "https://x.y/2",
                     open: () => keys([Qt.Key_Return, Qt.Key_Down, Qt.Key_Down, Qt.Key_Return])},
                    {tag: "by right click", content: two, opened: "https://x.y/z",
                     open: bubble => { mouseClick(bubble, 24, 24, Qt.RightButton)
                                       keyClick(Qt.Key_Down); keyClick(Qt.Key_Return) }}]
        }
        function test_links(data) {
            open([{id: "m", type: "ai agent", content: data.content}])
            Samples.openedLinks()
            data.open(lastRow().bubble)
            compare(Samples.openedLinks(), [data.opened])
        }

        TextEdit {
            id: clipboard

            function read() {
                clear()
                paste()
                return text
            }
        }

        function test_textIsSelected_data() {
            return [{tag: "plain", content: "one two\nthree"}, {tag: "rich", content: "`one` two\n*three*"}]
        }
        function test_textIsSelected(data) {
            open([{id: "l", type: "ai agent", content: "below"},
                  {id: "m", type: "ai agent", content: data.content}])
            const bubble = lastRow().bubble
            mouseMove(bubble, 20, 24)
            mouseDoubleClickSequence(bubble, 20, 24)
            keyClick(Qt.Key_C, Qt.ControlModifier)
            compare(clipboard.read(), "one")
            mousePress(bubble, 16, 24)
            for (let step = 1; step < 9; ++step)
                mouseMove(bubble, 16 + step * (bubble.width - 24) / 8, 24 + step * (bubble.height - 44) / 8)
            mouseRelease(bubble, bubble.width - 8, bubble.height - 20)
            // The selection stays while the pointer is elsewhere.
            mouseMove(list.rows.itemAt(0).bubble, 20, 24)
            keyClick(Qt.Key_C, Qt.ControlModifier)
            compare(clipboard.read(), "one two\nthree")
            mouseMove(bubble, 20, 24)
            mouseClick(bubble, 20, 24)
            tryVerify(() => findAll(list.rows, item => item instanceof SelectableText).length === 1)
        }

        function test_sides_data() {
            return [{tag: "left to right", mirrored: false}, {tag: "right to left", mirrored: true}]
        }
        function test_sides(data) {
            open([{id: "a", type: "human agent", content: "a"}, {id: "b", content: "b"}])
            list.LayoutMirroring.enabled = data.mirrored
            list.LayoutMirroring.childrenInherit = true
            waitForRendering(list)
            const [agent, customer] = [0, 1].map(row => list.rows.itemAt(row).bubble)
            const inset = item => data.mirrored ? 360 - item.x - item.width : item.x
            compare(inset(agent), 16 + 42)
            compare(inset(customer), 360 - 16 - customer.width)
            // The square corner is on the sender's side.
            const isSquare = (bubble, x) => {
                const at = bubble.mapToItem(window, x, bubble.height - 1.5)
                return !Qt.colorEqual(grabImage(window).pixel(at.x, at.y), window.color)
            }
            for (const [bubble, isRight] of [[agent, data.mirrored], [customer, !data.mirrored]]) {
                compare(isSquare(bubble, 1), !isRight)
                compare(isSquare(bubble, bubble.width - 2), isRight)
            }
        }
    }
}
