// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A page of the navigation, for a destination.
FocusScope {
    id: page

    /// A TolvaneDestination; stays as it is.
    required property var destination
    required property ScreenData screen
    required property bool isOnTop

    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: page.destination.kind === "imageViewer" ? viewer : conversation
    }

    Component {
        id: conversation

        TicketScreen {
            destination: page.destination
            navigation: page.screen.navigation
            messageData: page.screen.messages
            isOnTop: page.isOnTop
            focus: true
        }
    }

    Component {
        id: viewer

        ImageViewer {
            imageUrl: page.destination.imageUrl
            messageData: page.screen.messages
            focus: true
            onBackRequested: page.screen.navigation.goBack()
        }
    }
}
