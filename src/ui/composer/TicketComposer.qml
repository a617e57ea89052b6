// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The editor of a message: the attached pictures above a bar with the text editor and two buttons.
// Belongs at the bottom, over the scrolling content, with its implicit height, which depends on the
// text.
FocusScope {
    id: view

    required property ComposerData composer
    /// The editor scrolls and the pictures shrink to stay within this height.
    property real maximumHeight: 400

    /// Leaves room for the icon of a button.
    readonly property int editorMargin:
        Metrics.WidePadding + Metrics.ComposerIconSize + Metrics.Spacing

    implicitHeight: bar.y + bar.height

    // False until the initial content is laid out, which is not animated.
    property bool isAnimated: false

    function focusEditor() {
        editor.forceActiveFocus()
    }

    /// Inserts a text that was typed elsewhere in the conversation.
    function type(text: string) {
        editor.type(text)
    }

    function send() {
        TextEditHelper.commit()
        // Not after a tap, which would open the on-screen keyboard.
        if (sendButton.activeFocus)
            focusEditor()
        composer.send()
    }

    /// Returns false if the editor itself has to paste.
    function paste(): bool {
        if (composer.pasteImages())
            return true
        const text = composer.dividedClipboardText()
        if (text.length > 0)
            editor.type(text)
        return text.length > 0
    }

    readonly property bool hasFailed: composer.sendErrorText.length > 0

    BriefNotice {
        id: notice

        z: 1
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.top
        anchors.bottomMargin: Metrics.SmallPadding
    }

    Connections {
        target: view.composer

        function onRefused() { notice.showText(Strings.string("composer_only_pictures")) }
        function onLinesDivided() { notice.showText(Strings.string("composer_long_lines")) }
    }

    ComposerLayout {
        id: measures

        availableHeight: view.maximumHeight - strip.y
        hasThumbnails: thumbnails.count > 0
    }

    Timer {
        interval: 0
        running: measures.measuredHeight > 0
        onTriggered: view.isAnimated = true
    }

    // Created when it is shown, because of its fonts.
    Loader {
        id: failure

        width: view.width
        active: view.hasFailed
        sourceComponent: RetryLine {
            text: Strings.string("composer_send_failed").arg(view.composer.sendErrorText)
            onRetryRequested: view.send()
        }
    }

    Item {
        id: strip

        y: view.hasFailed ? failure.height + Metrics.SmallSpacing : 0
        // Extends to the edges of the window.
        x: -Metrics.Padding
        width: view.width + 2 * Metrics.Padding
        height: measures.hasThumbnails ? measures.stripHeight + measures.stripSpacing : 0
        clip: height < thumbnails.height

        Behavior on height {
            enabled: view.isAnimated

            EasedAnimation { }
        }

        ImageThumbnails {
            id: thumbnails

            width: parent.width
            height: measures.stripHeight
            composer: view.composer
            onEmptied: view.focusEditor()
        }
    }

    Item {
        id: bar

        readonly property real radius: measures.cornerRadius(editor.height)

        y: strip.y + strip.height
        width: view.width
        height: editor.height + 2 * measures.editorVerticalPadding

        RoundedRectangle {
            anchors.fill: parent
            anchors.margins: 1
            radius: bar.radius - 1
            // Nearly opaque, so that the text is legible over content that scrolls below.
            color: Qt.alpha(Qt.tint(Theme.chatBackgroundColor, Qt.alpha(Theme.fontBasicColor, 0.07)), 0.92)
        }
        RoundedRectangle {
            anchors.fill: parent
            radius: bar.radius
            rim: 1
            color: Qt.alpha(Theme.fontBasicColor, 0.12)
        }

        // A press beside the editor focuses it, and does not reach the items behind the bar.
        MouseArea {
            anchors.fill: parent
            cursorShape: Qt.IBeamCursor
            onPressed: view.focusEditor()
            onWheel: wheel => wheel.accepted = true
        }

        PickImagesButton {
            id: pickButton

            anchors.left: parent.left
            anchors.leftMargin: Metrics.WidePadding - (width - iconSize) / 2
            anchors.verticalCenter: parent.verticalCenter
            composer: view.composer
        }

        AutoSizingTextEditor {
            id: editor

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: view.editorMargin
            anchors.rightMargin: view.editorMargin
            anchors.verticalCenter: parent.verticalCenter
            height: measures.editorHeight
            focus: true
            text: view.composer.message
            placeholder: Strings.string("composer_placeholder")
            isDisabled: view.composer.isFetchingTicket
            verticalPadding: measures.editorVerticalPadding
            maximumHeight: measures.editorMaxHeight
            onTextHeightChanged: measures.setTextHeight(textHeight)
            onEdited: text => view.composer.message = text
            onSubmitted: view.send()
            onPasteRequested: event => event.accepted = view.paste()
            Component.onCompleted: measures.setTextHeight(textHeight)

            Behavior on height {
                enabled: view.isAnimated

                EasedAnimation { }
            }
        }

        SendMessageButton {
            id: sendButton

            anchors.right: parent.right
            anchors.rightMargin: Metrics.WidePadding - (width - Metrics.ComposerIconSize) / 2
            anchors.verticalCenter: parent.verticalCenter
            composer: view.composer
            isComposing: editor.isComposing
            onClicked: view.send()
        }
    }
}
