// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Makes a Text selectable: a TextEdit below it with the same layout, which draws only the selection.
Item {
    id: view

    required property Text source
    readonly property alias selectedText: editor.selectedText

    function deselect() {
        editor.deselect()
    }

    anchors.fill: parent
    // The text may have more room than its parent shows of it.
    clip: true

    TextEdit {
        id: editor

        x: view.source.x
        y: view.source.y
        width: view.source.width
        text: view.source.textFormat === Text.PlainText ? view.source.text
              : view.source.text.replace(/a { color: [^}]*}/, "a { color: transparent }")
        textFormat: view.source.textFormat === Text.PlainText ? TextEdit.PlainText : TextEdit.RichText
        wrapMode: TextEdit.Wrap
        font: view.source.font
        LayoutMirroring.enabled: false
        horizontalAlignment: view.source.effectiveHorizontalAlignment
        color: "transparent"
        selectedTextColor: "transparent"
        selectionColor: Qt.alpha(view.source.color, 0.35)
        readOnly: true
        selectByMouse: true
        persistentSelection: true
        // The composer keeps the keyboard focus.
        activeFocusOnPress: false
        Accessible.ignored: true
    }
}
