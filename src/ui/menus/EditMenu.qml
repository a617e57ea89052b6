// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The context menu of an editor.
PopupMenu {
    id: menu

    /// Emitted before a paste. A handler that pastes something itself sets `event.accepted`.
    signal pasteRequested(var event)

    function openFor(input: TextEdit, position: point) {
        const hasSelection = input.selectionStart !== input.selectionEnd
        openAt(input, position.x, position.y, [
            {text: Strings.string("edit_undo"), isEnabled: input.canUndo, run: () => input.undo()},
            {text: Strings.string("edit_cut"), isEnabled: hasSelection, run: () => input.cut()},
            {text: Strings.string("edit_copy"), isEnabled: hasSelection, run: () => input.copy()},
            {text: Strings.string("edit_paste"), isEnabled: true, run: () => paste(input)},
            {text: Strings.string("edit_select_all"), isEnabled: input.length > 0,
             run: () => input.selectAll()}
        ])
    }

    function paste(input: TextEdit) {
        const event = {accepted: false}
        pasteRequested(event)
        if (!event.accepted)
            input.paste()
    }
}
