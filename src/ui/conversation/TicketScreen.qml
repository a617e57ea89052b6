// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The screen of one conversation, existing or new.
FocusScope {
    id: screen

    /// A TolvaneDestination: a ticket, or a new one.
    required property destination destination
    required property NavigationData navigation
    required property MessageData messageData
    /// The ids of the tickets in the list; null if the list is not known.
    property var knownTicketIds: null
    /// False while another screen covers this one.
    required property bool isOnTop

    property bool isComplete: false

    /// Adds a text of the host to the draft.
    function addText(text: string) {
        const draft = conversation.composer.message
        conversation.composer.message = draft.length > 0 ? draft + "\n" + text : text
    }

    onIsOnTopChanged: {
        if (isOnTop && isComplete)
            conversation.appear()
    }
    Component.onCompleted: {
        isComplete = true
        if (knownTicketIds)
            conversation.composer.setKnownTicketIds(knownTicketIds)
        conversation.appear()
    }

    Keys.onPressed: event => {
        if (event.matches(StandardKey.Refresh)) {
            conversation.appear()
            event.accepted = true
            return
        }
        // Control characters have shortcuts of their own.
        const isText = event.text.length > 0 && event.text >= " " && event.text !== "\x7f"
        if (isText && !(event.modifiers & (Qt.ControlModifier | Qt.AltModifier | Qt.MetaModifier))) {
            view.type(event.text)
            event.accepted = true
        }
    }
    Keys.onEscapePressed: navigation.goBack()
    Keys.onBackPressed: navigation.goBack()

    TicketScreenData {
        id: conversation

        destination: screen.destination
    }

    Connections {
        target: screen.messageData

        function onSelectedAttachmentChanged() {
            const url = screen.messageData.selectedAttachment
            // The viewer, on top of this screen, selects the pictures that it shows.
            if (screen.isOnTop && String(url).length > 0)
                screen.navigation.navigate(Destination.imageViewer(url))
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.chatBackgroundColor

        PointerBlocker { }
    }

    TicketContentView {
        id: view

        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        width: parent.width
        focus: true
        ticket: conversation
        onAttachmentOpened: (imageUrl, attachments) => {
            screen.messageData.attachments = attachments
            screen.messageData.selectedAttachment = imageUrl
        }
        keyboardHeight: keyboard.height
    }

    KeyboardArea {
        id: keyboard

        anchors.bottom: parent.bottom
    }

    TicketBar {
        id: bar

        width: parent.width
        title: conversation.title
        subtitle: conversation.subtitle
        isSupportAvailable: conversation.isSupportAvailable
        onBackRequested: screen.navigation.goBack()
    }

    AttachmentDropArea {
        anchors.fill: parent
        composer: conversation.composer
    }
}
