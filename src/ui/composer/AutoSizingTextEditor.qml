// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A text editor that reports the height of its text, and scrolls if it is smaller than that.
//
// It measures its own layout, including the empty line after a line break at the end. A hidden copy
// would be laid out a second time with each key.
FocusScope {
    id: editor

    /// The text in the editor. Typing emits edited(), and the user of this component then sets the
    /// text.
    required property string text
    required property string placeholder
    required property bool isDisabled
    required property real verticalPadding
    /// Up to this height, the user of this component makes the editor as high as its text.
    required property real maximumHeight

    /// Also true while an input method composes the first text.
    readonly property bool hasContent: input.length > 0 || isComposing
    readonly property bool isComposing: input.preeditText.length > 0
    readonly property real textHeight: input.contentHeight + 2 * verticalPadding

    signal edited(string text)
    signal submitted()
    /// Emitted before a paste. A handler that pastes something itself sets `event.accepted`.
    signal pasteRequested(var event)

    // True if Enter sends the message. Composing input methods receive all keys. On an on-screen
    // keyboard, Enter is the only key for a line break.
    function submits(modifiers: int): bool {
        if (modifiers & Qt.ControlModifier)
            return true
        return ViewOptions.enterSends && !isComposing && !Keyboard.isShown
                && !(modifiers & (Qt.ShiftModifier | Qt.AltModifier | Qt.MetaModifier))
    }

    /// Inserts a text that was typed while another item had the focus.
    function type(text: string) {
        if (isDisabled)
            return
        input.forceActiveFocus()
        input.remove(input.selectionStart, input.selectionEnd)
        input.insert(input.cursorPosition, text)
    }

    // Compares once per change, as the text may be long.
    onTextChanged: {
        if (input.text === text)
            return
        const position = input.cursorPosition
        input.text = text
        input.cursorPosition = Math.min(position, input.length)
    }

    enabled: !isDisabled
    // Not bound to `enabled`, which is also false while the page slides out.
    opacity: isDisabled ? 0.5 : 1

    Flickable {
        id: viewport

        anchors.fill: parent
        contentWidth: width
        contentHeight: input.height
        interactive: contentHeight > height
        boundsBehavior: Flickable.StopAtBounds
        clip: true

        // Uses the height after a running animation, so that the text does not scroll while the
        // editor grows.
        function show(rectangle) {
            const top = rectangle.y - editor.verticalPadding
            const bottom = rectangle.y + rectangle.height + editor.verticalPadding
            // The cursor moves to a new line before the height of the text changes.
            const wantedHeight = Math.max(editor.textHeight, bottom)
            const finalHeight = Math.max(height, Math.min(wantedHeight, editor.maximumHeight))
            if (contentY > top)
                contentY = Math.max(0, top)
            else if (contentY + finalHeight < bottom)
                contentY = Math.max(0, bottom - finalHeight)
        }
        onHeightChanged: show(input.cursorRectangle)

        TextEdit {
            id: input

            width: viewport.width
            height: Math.max(viewport.height, editor.textHeight)
            focus: true
            activeFocusOnTab: true
            topPadding: editor.verticalPadding
            bottomPadding: editor.verticalPadding
            leftPadding: 5
            rightPadding: 5
            textFormat: TextEdit.PlainText
            wrapMode: TextEdit.Wrap
            font.pixelSize: Theme.body
            color: Theme.fontBasicColor
            selectionColor: Theme.accentColor
            selectedTextColor: Theme.primaryColor
            selectByMouse: !finger.active
            persistentSelection: false
            inputMethodHints: Qt.ImhMultiLine
            // The text determines the alignment; in an empty editor, the language of the views does.
            // With mirroring, TextEdit would not notice that the alignment was reset.
            LayoutMirroring.enabled: false
            horizontalAlignment: !editor.hasContent && editor.LayoutMirroring.enabled
                                 ? TextEdit.AlignRight : undefined
            Accessible.role: Accessible.EditableText
            Accessible.name: editor.placeholder
            Accessible.multiLine: true

            onTextChanged: {
                TextEditHelper.observeViewport(input)
                if (text !== editor.text)
                    editor.edited(text)
            }
            onCursorRectangleChanged: viewport.show(cursorRectangle)

            Keys.onPressed: event => {
                const isReturn = event.key === Qt.Key_Return || event.key === Qt.Key_Enter
                if (isReturn && editor.submits(event.modifiers)) {
                    event.accepted = true
                    editor.submitted()
                } else if (event.matches(StandardKey.Paste)) {
                    editor.pasteRequested(event)
                }
            }
            // Without these, Tab would insert a tab, and no key would move the focus.
            Keys.onTabPressed: nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed:
                nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            TapHandler {
                acceptedButtons: Qt.RightButton
                gesturePolicy: TapHandler.WithinBounds
                onTapped: point => menu.openFor(input, point.position)
            }

            // A finger scrolls; only the mouse selects.
            PointHandler {
                id: finger

                acceptedDevices: PointerDevice.TouchScreen
            }
        }
    }

    Text {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 5
        y: editor.verticalPadding
        text: editor.placeholder
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        maximumLineCount: 1
        color: Theme.fontBasicColor
        opacity: 0.6
        font.pixelSize: Theme.body
        visible: !editor.hasContent
        Accessible.ignored: true
    }

    EditMenu {
        id: menu

        name: editor.placeholder
        onPasteRequested: event => editor.pasteRequested(event)
    }

    ScrollIndicator {
        flickable: viewport
        orientation: Qt.Vertical
        visible: editor.textHeight > editor.maximumHeight
    }
}
