// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// The home screen, and what is stacked above it.
FocusScope {
    id: stack

    required property ScreenData screen
    readonly property var path: screen.navigation.path

    TolvaneContentView {
        anchors.fill: parent
        screen: stack.screen
        focus: stack.path.length === 0
        enabled: stack.path.length === 0
        isOnTop: stack.path.length === 0
    }

    Repeater {
        model: stack.path.length

        RoutePage {
            required property int index

            anchors.fill: parent
            destination: stack.path[index]
            focus: index === stack.path.length - 1
            onBackRequested: stack.screen.navigation.goBack()
        }
    }
}
