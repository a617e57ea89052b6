// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Lets the mouse select in the texts of a view. A Text is cheaper than a TextEdit, but cannot be
// selected. Therefore only the text below the pointer and the one with the selection have an editor.
QtObject {
    id: selection

    property SelectableText hovered: null
    property SelectableText selected: null
    readonly property bool isEmpty: selected === null

    /// A text has been selected.
    signal started()

    function copy() {
        Clipboard.setText(selected.selectedText)
    }

    /// To be called when the pointer enters a text or leaves it.
    function hover(text: Text, isHovered: bool) {
        if (!isHovered) {
            if (hovered?.source === text)
                leave()
            return
        }
        leave()
        hovered = selected?.source === text ? selected
                                            : editor.createObject(text.parent, {source: text})
    }

    function leave() {
        if (hovered !== selected)
            hovered?.destroy()
        hovered = null
    }

    // As in signals: Qt 6.8 may free a parameter's type that is written in QML, and crash.
    function update(item: Item) {
        const view = item as SelectableText
        const isSelected = view.selectedText.length > 0
        if (isSelected === (view === selected))
            return
        const previous = selected
        selected = isSelected ? view : null
        if (previous && previous !== hovered)
            previous.destroy()
        if (isSelected)
            started()
    }

    readonly property Component editor: Component {
        SelectableText {
            id: view

            onSelectedTextChanged: selection.update(view)
        }
    }
}
