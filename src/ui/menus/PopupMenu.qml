// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// A popup menu. It covers the whole window, so that a press beside it closes it. Escape and Back
// close it, too. The previous item then has the focus again.
FocusScope {
    id: menu

    /// Objects with `text`, `isEnabled` and a function `run`.
    property var entries: []
    required property string name
    property bool isOpen: false
    property Item previousFocusItem: null
    /// The corner of the menu, in the window.
    property point origin

    function openAt(item: Item, x: real, y: real, items: var) {
        entries = items
        parent = item.Window.contentItem
        origin = item.mapToItem(null, x, y)
        previousFocusItem = Window.activeFocusItem
        isOpen = true
        forceActiveFocus()
        step(1)
    }

    function close() {
        if (!isOpen)
            return
        isOpen = false
        previousFocusItem?.forceActiveFocus()
    }

    property int current: -1

    // Moves the focus to the next enabled entry, and from either end of the menu to the other.
    function step(by: int) {
        for (let tried = 0; tried < entries.length; ++tried) {
            current = (current + by + entries.length) % entries.length
            if (entries[current].isEnabled)
                break
        }
        rows.itemAt(current)?.forceActiveFocus()
    }

    onIsOpenChanged: current = -1

    // Above the messenger, which is above the host's popups.
    z: 2000001
    anchors.fill: parent
    visible: isOpen
    LayoutMirroring.enabled: Strings.isRightToLeft
    LayoutMirroring.childrenInherit: true
    Keys.onEscapePressed: close()
    Keys.onBackPressed: close()
    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)
    Keys.onTabPressed: step(1)
    Keys.onBacktabPressed: step(-1)

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onPressed: menu.close()
        onWheel: wheel => wheel.accepted = true
    }

    Rectangle {
        id: panel

        readonly property real start: menu.LayoutMirroring.enabled ? menu.origin.x - width : menu.origin.x

        x: Math.max(Metrics.SmallPadding, Math.min(start, menu.width - width - Metrics.SmallPadding))
        y: Math.max(Metrics.SmallPadding,
                    Math.min(menu.origin.y, menu.height - height - Metrics.SmallPadding))
        width: Math.min(20 * Theme.footnote, menu.width - 2 * Metrics.SmallPadding)
        height: items.height + Metrics.SmallPadding
        radius: Metrics.ItemRadius
        color: Qt.tint(Theme.backgroundColor, Qt.alpha(Theme.isDark ? "white" : "black", 0.06))
        border.color: Qt.alpha(Theme.isDark ? "white" : "black", 0.2)
        Accessible.role: Accessible.PopupMenu
        Accessible.name: menu.name

        // A press between the entries does not close the menu.
        MouseArea { anchors.fill: parent }

        Column {
            id: items

            y: Metrics.SmallPadding / 2
            width: parent.width

            Repeater {
                id: rows

                model: menu.isOpen ? menu.entries : []

                PopupMenuItem {
                    required property var modelData

                    width: items.width
                    text: modelData.text
                    enabled: modelData.isEnabled
                    onClicked: {
                        const run = modelData.run
                        menu.close()
                        run()
                    }
                }
            }
        }
    }
}
