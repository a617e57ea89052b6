// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The page of a destination. The content is set by URL, so that its types are loaded with the first
// page instead of the home screen.
FocusScope {
    id: page

    /// Never changes.
    required property destination destination
    required property ScreenData screen
    required property bool isOnTop

    Keys.onPressed: event => {
        const backwards = LayoutMirroring.enabled ? Qt.Key_Right : Qt.Key_Left
        if (event.key === backwards && event.modifiers & Qt.AltModifier) {
            screen.navigation.goBack()
            event.accepted = true
        }
    }

    // The mouse's back button; other buttons pass through.
    MouseArea {
        z: 1
        anchors.fill: parent
        acceptedButtons: Qt.BackButton
        onClicked: page.screen.navigation.goBack()
    }

    Loader {
        id: content

        anchors.fill: parent
        focus: true
        onLoaded: page.applyText()
        Component.onCompleted: {
            if (page.destination.kind === "imageViewer")
                setSource(Qt.resolvedUrl("../viewer/ImageViewer.qml"), {
                    imageUrl: page.destination.imageUrl,
                    messageData: page.screen.attachmentSelection,
                    focus: true
                })
            else
                setSource(Qt.resolvedUrl("../conversation/TicketScreen.qml"), {
                    destination: page.destination,
                    navigation: page.screen.navigation,
                    messageData: page.screen.attachmentSelection,
                    // Only a new conversation needs them, and there may be thousands.
                    knownTicketIds: page.destination.kind === "newTicket" && page.screen.isListKnown
                                    ? page.screen.ticketIds : null,
                    isOnTop: Qt.binding(() => page.isOnTop),
                    focus: true
                })
        }
    }

    /// A TicketScreen. (Naming the type here would load it with the home screen.)
    readonly property var conversation: content.item

    function applyText() {
        if (destination.kind === "newTicket" && screen.newTicketText.length > 0)
            conversation.addText(screen.takeNewTicketText())
    }

    Connections {
        target: page.screen

        function onNewTicketTextChanged() {
            page.applyText()
        }
    }

    Connections {
        target: content.item
        ignoreUnknownSignals: true

        function onBackRequested() {
            page.screen.navigation.goBack()
        }
    }
}
