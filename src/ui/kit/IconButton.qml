// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A button with an icon, 36 by 36 pixels.
Pressable {
    id: button

    required property string icon
    required property color color
    /// Whether the icon points in the reading direction, and is turned in right-to-left layouts.
    property bool mirrors: false
    property bool isFlipped: mirrors && LayoutMirroring.enabled
    property real iconSize: Metrics.IconSize
    property real iconRotation: isFlipped ? 180 : 0
    /// The keyboard shortcut with the same effect, for the tooltip.
    property string shortcut
    /// Set it while the button itself is disabled, as opposed to its whole page.
    property bool isDimmed: false
    property real iconOpacity: isDimmed ? 0.3 : 1

    implicitWidth: Metrics.ButtonSize
    implicitHeight: Metrics.ButtonSize
    focusRing.tint: color

    Rectangle {
        anchors.fill: parent
        radius: Metrics.ItemRadius
        color: button.color
        opacity: button.enabled && button.isHovered ? 0.12 : 0
    }

    ToolTip {
        text: button.shortcut.length > 0 ? button.name + " (" + button.shortcut + ")" : button.name
        isWanted: button.isHovered && !button.isPressed
    }

    Icon {
        anchors.centerIn: parent
        width: button.iconSize
        height: button.iconSize
        name: button.icon
        color: button.color
        opacity: button.isPressed ? 0.4 : button.iconOpacity
        rotation: button.iconRotation
    }
}
