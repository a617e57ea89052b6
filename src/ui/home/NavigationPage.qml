// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// A page of the navigation, for a destination.
FocusScope {
    id: page

    /// A TolvaneDestination; stays as it is.
    required property var destination
    required property ScreenData screen
    required property bool isOnTop

    RoutePage {
        anchors.fill: parent
        focus: true
        destination: page.destination
        onBackRequested: page.screen.navigation.goBack()
    }
}
