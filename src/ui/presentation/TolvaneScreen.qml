// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The root view: a skeleton until the settings have arrived, then the real interface.
FocusScope {
    id: root

    required property ScreenData screen

    // By URL: the types of the view that is not shown are not loaded.
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
