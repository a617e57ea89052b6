// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// The branded part of the home screen: logo, greeting and the button that closes the messenger. It
// has two layouts, of which one takes the place of the other as the list is scrolled.
Rectangle {
    id: header

    property bool isCollapsed: false
    property bool isLandscape: false

    signal closeRequested()

    color: Theme.primaryColor

    TolvaneHeaderLayout {
        anchors.fill: parent
        isCollapsed: false
        isLandscape: header.isLandscape
        isPresent: !header.isCollapsed
        titleSize: header.isLandscape ? Theme.Title2 : Theme.Title
        logoSize: header.isLandscape ? 38 : 54
        logoRadius: header.isLandscape ? 8 : 12
    }

    TolvaneHeaderLayout {
        anchors.fill: parent
        isCollapsed: true
        isLandscape: header.isLandscape
        isPresent: header.isCollapsed
        titleSize: header.isLandscape ? Theme.Body : Theme.Title3
        logoSize: header.isLandscape ? 22 : 32
        logoRadius: header.isLandscape ? 6 : 8
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
