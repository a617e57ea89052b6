// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The branded part of the home screen: logo, greeting and the button that closes the messenger. It
// has two layouts, of which one takes the place of the other as the list is scrolled. Its heights are
// given, so that there is a largest text for each.
Rectangle {
    id: header

    property bool isCollapsed: false
    property bool isLandscape: false
    /// How far the sheet is pulled down, from 0 to 1 and more, where letting go loads anew.
    property real pull: 0

    signal closeRequested()

    color: Theme.primaryColor

    TolvaneHeaderLayout {
        anchors.fill: parent
        isCollapsed: false
        isLandscape: header.isLandscape
        isPresent: !header.isCollapsed
        titleSize: header.isLandscape ? Math.min(Theme.title2, 30) : Math.min(Theme.title, 52)
        logoSize: header.isLandscape ? 38 : 54
        logoRadius: header.isLandscape ? 8 : 12
    }

    // Made before anybody scrolls, but not before everything else is there.
    Loader {
        id: collapsed

        anchors.fill: parent
        active: false
        sourceComponent: TolvaneHeaderLayout {
            isCollapsed: true
            isLandscape: header.isLandscape
            isPresent: header.isCollapsed
            titleSize: header.isLandscape ? Math.min(Theme.body, 18) : Math.min(Theme.title3, 24)
            logoSize: header.isLandscape ? 22 : 32
            logoRadius: header.isLandscape ? 6 : 8
        }
    }

    Timer {
        interval: 600
        running: true
        onTriggered: collapsed.active = true
    }

    onIsCollapsedChanged: collapsed.active = true

    // In the room that the sheet leaves.
    ProgressIndicator {
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height - Parallax.contentCornerRadius - height - 12
        visible: header.pull > 0
        opacity: Math.min(1, header.pull)
        tint: Theme.accentColor
    }

    IconButton {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 16
        icon: "close"
        color: Theme.accentColor
        name: Texts.string("accessibility_close")
        onClicked: header.closeRequested()
    }
}
