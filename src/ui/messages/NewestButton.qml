// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Scrolls to the newest message.
IconButton {
    id: button

    property bool isWanted: false

    implicitWidth: Metrics.ComposerButtonSize
    implicitHeight: Metrics.ComposerButtonSize
    icon: "chevron-left"
    color: Theme.fontBasicColor
    name: Strings.string("accessibility_newest")
    shortcut: "End"
    opacity: isWanted ? 1 : 0
    enabled: isWanted
    visible: opacity > 0
    iconRotation: -90

    Behavior on opacity {
        EasedAnimation { }
    }

    RoundedRectangle {
        z: -1
        anchors.fill: parent
        anchors.margins: 1
        radius: width / 2
        color: Qt.tint(Theme.chatBackgroundColor, Qt.alpha(Theme.fontBasicColor, 0.08))
    }
    RoundedRectangle {
        z: -1
        anchors.fill: parent
        radius: width / 2
        rim: 1
        color: Qt.alpha(Theme.fontBasicColor, 0.25)
    }
}
