// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A button at the side of the picture that shows the previous or the next one.
ViewerControl {
    id: control

    required property bool isNext

    signal clicked()

    IconButton {
        width: Metrics.ButtonSize + Metrics.SmallPadding
        height: width
        focus: true
        icon: "chevron-left"
        color: "white"
        isFlipped: control.isNext !== control.LayoutMirroring.enabled
        focusRing.ground: control.lightestGround
        focusRing.anchors.margins: 1
        focusRing.radius: focusRing.height / 2
        name: Strings.string(control.isNext ? "accessibility_next_picture"
                                            : "accessibility_previous_picture")
        shortcut: isFlipped ? "→" : "←"
        onClicked: control.clicked()
    }
}
