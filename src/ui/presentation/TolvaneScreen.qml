// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The root view: a skeleton until the settings have arrived, then the real interface.
FocusScope {
    id: root

    required property ScreenData screen

    Loader {
        anchors.fill: parent
        focus: true
        sourceComponent: root.screen.settingsDidLoad ? running : waiting
    }

    Component {
        id: waiting

        TolvaneSkeletonView {
            focus: true
            screen: root.screen
        }
    }

    Component {
        id: running

        TolvaneNavigationStack {
            focus: true
            screen: root.screen
        }
    }
}
