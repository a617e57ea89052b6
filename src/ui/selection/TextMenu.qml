// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The context menu of a message's text.
PopupMenu {
    id: menu

    required property TextSelection selection

    signal linkOpened(string link)

    /// @param links the addresses to offer
    /// @param copyMessage a function that copies the whole message
    function openFor(item: Item, position: point, links: var, copyMessage: var) {
        const entries = [
            {text: Strings.string("edit_copy"), isEnabled: !selection.isEmpty, run: selection.copy},
            {text: Strings.string("message_copy"), isEnabled: true, run: copyMessage}
        ]
        const open = Strings.string("message_open_link")
        for (const link of links)
            entries.push({text: links.length > 1 ? open + ": " + link : open, isEnabled: true,
                          run: () => linkOpened(link)})
        if (links.length === 1)
            entries.push({text: Strings.string("message_copy_link"), isEnabled: true,
                          run: () => Clipboard.setText(links[0])})
        openAt(item, position.x, position.y, entries)
    }
}
