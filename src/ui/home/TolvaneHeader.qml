// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The branded part of the home screen: logo and greeting. Scrolling the list fades between its two
// layouts. Their heights are fixed, so each layout limits its text size.
Rectangle {
    id: header

    property bool isCollapsed: false
    property bool isLandscape: false
    /// How far the sheet is pulled down. From 1 on, releasing it loads the list again.
    property real pullProgress: 0

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

    // Created after the first frames, but usually before the first scrolling.
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

    // In the space that the sheet uncovers when it is pulled down.
    ProgressIndicator {
        anchors.horizontalCenter: parent.horizontalCenter
        y: parent.height - Parallax.contentCornerRadius - height - 12
        visible: header.pullProgress > 0
        opacity: Math.min(1, header.pullProgress)
        tint: Theme.accentColor
    }
}
