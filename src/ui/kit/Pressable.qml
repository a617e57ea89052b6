// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An item to press: by pointer, by Return, Enter or Space while it has the focus, or by assistive
// technology. It draws the focus ring only, which is invisible without a tint.
Item {
    id: pressable

    /// The action of a press, for screen readers.
    required property string name
    /// The part that a pointer can press.
    property Item surface: pressable
    readonly property bool isHovered: area.containsMouse || hover.hovered
    readonly property alias isPressed: area.pressed
    readonly property alias focusRing: ring
    property alias acceptedButtons: area.acceptedButtons

    /// Emitted before clicked() if a pointer has pressed the item.
    signal tapped()
    signal clicked()
    /// Emitted, if the right button is accepted, when it or a key asks for the context menu.
    signal menuRequested(point position)

    activeFocusOnTab: enabled
    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: enabled
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onPressed: event => {
        if (!(acceptedButtons & Qt.RightButton) || !Keyboard.opensMenu(event.key, event.modifiers))
            return
        event.accepted = true
        menuRequested(Qt.point(width / 2, height / 2))
    }

    FocusRing {
        id: ring

        z: 1
    }

    // Tooltips of items within the surface hide the mouse from the area.
    HoverHandler {
        id: hover

        parent: pressable.surface
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
    MouseArea {
        id: area

        anchors.fill: pressable.surface
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: mouse => {
            if (mouse.button === Qt.RightButton) {
                pressable.menuRequested(Qt.point(mouse.x, mouse.y))
                return
            }
            pressable.tapped()
            pressable.clicked()
        }
    }
}
