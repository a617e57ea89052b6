// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows date and time while the mouse rests on a line of text that begins with an age.
Loader {
    id: tip

    required property Text line
    required property string timestamp

    x: line.effectiveHorizontalAlignment === Text.AlignRight ? line.width - width : 0
    width: line.contentWidth
    height: line.height
    active: hover.hovered
    sourceComponent: ToolTip {
        text: Strings.dateTime(tip.timestamp)
        isWanted: true
    }

    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }
}
