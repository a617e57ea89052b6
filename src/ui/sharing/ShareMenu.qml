// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The menu for the picture's file: drag it by its thumbnail, save it or copy it. Covers the whole
// viewer; a press outside its panel closes it.
FocusScope {
    id: menu

    required property ImageShare share
    property bool isOpen: false
    property Item previousFocusItem: null

    signal closed()
    signal saveRequested()

    enabled: isOpen
    visible: opacity > 0
    opacity: isOpen ? 1 : 0
    onIsOpenChanged: {
        if (isOpen) {
            share.prepareDrag()
            previousFocusItem = Window.activeFocusItem
            save.forceActiveFocus()
        } else if (previousFocusItem) {
            previousFocusItem.forceActiveFocus()
        }
    }
    Keys.onEscapePressed: closed()
    Keys.onBackPressed: closed()
    Keys.onUpPressed: save.forceActiveFocus()
    Keys.onDownPressed: copy.forceActiveFocus()
    // The focus cycles within the menu.
    Keys.onTabPressed: (save.activeFocus ? copy : save).forceActiveFocus()
    Keys.onBacktabPressed: (save.activeFocus ? copy : save).forceActiveFocus()

    Behavior on opacity {
        EasedAnimation { duration: 120 }
    }

    MouseArea {
        anchors.fill: parent
        acceptedButtons: Qt.AllButtons
        onPressed: menu.closed()
        onWheel: wheel => wheel.accepted = true
    }

    Rectangle {
        id: panel

        anchors.right: parent.right
        anchors.top: parent.top
        anchors.rightMargin: Metrics.SmallPadding
        // Below the button that opens it.
        anchors.topMargin: Metrics.ButtonSize + 2 * Metrics.SmallPadding
        width: Math.min(260, parent.width - 2 * Metrics.SmallPadding)
        height: items.height + 2 * Metrics.SmallPadding
        radius: Metrics.PanelRadius
        color: "#f2262629"
        border.color: "#33ffffff"
        Accessible.role: Accessible.PopupMenu
        Accessible.name: Strings.string("accessibility_share")

        // A press on the panel beside the items does not close the menu.
        MouseArea { anchors.fill: parent }

        Column {
            id: items

            y: Metrics.SmallPadding
            width: parent.width

            ShareFile {
                width: parent.width
                share: menu.share
            }

            Rectangle {
                width: parent.width
                height: 1
                color: "#33ffffff"
            }

            ShareMenuItem {
                id: save

                width: parent.width
                text: Strings.string("viewer_save")
                onClicked: {
                    menu.closed()
                    menu.saveRequested()
                }
            }

            ShareMenuItem {
                id: copy

                width: parent.width
                text: Strings.string("viewer_copy")
                onClicked: {
                    menu.closed()
                    menu.share.copy()
                }
            }
        }
    }
}
