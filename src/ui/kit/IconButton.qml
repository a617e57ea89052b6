// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A button with an icon, 36 by 36 pixels, for pointer and keyboard. Faded while disabled.
Item {
    id: button

    required property string icon
    required property color color
    /// What the button does, for screen readers.
    required property string name
    /// Whether the icon points in the reading direction, and is turned in right-to-left layouts.
    property bool mirrors: false
    property real iconSize: 18

    signal clicked()

    implicitWidth: 36
    implicitHeight: 36
    activeFocusOnTab: enabled
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: enabled
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    FocusRing { tint: button.color }

    Icon {
        anchors.centerIn: parent
        width: button.iconSize
        height: button.iconSize
        name: button.icon
        color: button.color
        opacity: !button.enabled ? 0.3 : area.pressed ? 0.4 : 1
        rotation: button.mirrors && button.LayoutMirroring.enabled ? 180 : 0
    }

    MouseArea {
        id: area

        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: button.clicked()
    }
}
