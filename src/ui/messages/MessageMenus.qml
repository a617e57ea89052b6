// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The context menus of a message's text and of its pictures, created when they are first opened.
Item {
    id: menus

    required property TextSelection selection

    signal linkOpened(string link)
    // Parameters have types of C++: Qt 6.8 may free one that is written in QML, and crash.
    signal messageCopied(Item item)

    function openTextMenu(item: Item, position: point) {
        const message = item as MessageItem
        textMenu.active = true
        const link = message.bubble.linkAt(position)
        const menu = textMenu.item as TextMenu
        menu.openFor(message.bubble, position, link.length > 0 ? [link] : message.content.links,
                     () => messageCopied(message))
    }

    function openPictureMenu(item: Item, position: point) {
        const cell = item as AttachmentThumbnail
        pictureMenu.active = true
        const menu = pictureMenu.item as PictureMenu
        menu.openFor(cell, cell.imageUrl, cell.isLoaded, position, cell.open)
    }

    Loader {
        id: textMenu

        active: false
        sourceComponent: TextMenu {
            name: Strings.string("ticket_list_your_messages")
            selection: menus.selection
            onLinkOpened: link => menus.linkOpened(link)
        }
    }

    Loader {
        id: pictureMenu

        anchors.fill: parent
        active: false
        sourceComponent: PictureMenu { }
    }
}
