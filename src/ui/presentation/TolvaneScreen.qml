// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The root view: a skeleton until the settings are loaded, then the user interface.
FocusScope {
    id: root

    required property ScreenData screen

    // By URL, so that only the types of the shown view are loaded.
    Loader {
        id: view

        readonly property string file:
            root.screen.settingsDidLoad ? "TolvaneNavigationStack.qml" : "../home/TolvaneSkeletonView.qml"

        function show() {
            setSource(Qt.resolvedUrl(file), {focus: true, screen: root.screen})
        }

        anchors.fill: parent
        focus: true
        onFileChanged: show()
        Component.onCompleted: show()
    }
}
