// SPDX-License-Identifier: MIT
import QtQuick

// An item to press: by pointer, by Return, Enter or Space while it has the focus, or by assistive
// technology. Has no look but the ring that shows the focus; without a tint, the ring is invisible.
Item {
    id: pressable

    /// What a press does, for screen readers.
    required property string name
    /// The part that a pointer can press.
    property Item surface: pressable
    property alias hoverEnabled: area.hoverEnabled
    readonly property alias isHovered: area.containsMouse
    readonly property alias isPressed: area.pressed
    readonly property alias focusRing: ring

    /// Emitted before clicked() if a pointer has pressed the item.
    signal tapped()
    signal clicked()

    activeFocusOnTab: enabled
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: enabled
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    FocusRing {
        id: ring

        z: 1
    }

    MouseArea {
        id: area

        anchors.fill: pressable.surface
        cursorShape: Qt.PointingHandCursor
        onClicked: {
            pressable.tapped()
            pressable.clicked()
        }
    }
}
