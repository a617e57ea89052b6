// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A control over the picture, hidden together with the others. It has a dark background, as the
// picture may be as white as the control.
FocusScope {
    id: control

    required property bool showControls
    default property alias content: background.data

    implicitWidth: background.childrenRect.width
    implicitHeight: background.childrenRect.height
    enabled: showControls
    opacity: showControls ? 1 : 0
    visible: opacity > 0

    Behavior on opacity {
        EasedAnimation { duration: Metrics.FadeDuration }
    }

    // Keeps presses beside the button, or on a disabled button, from the picture.
    MouseArea { anchors.fill: parent }

    Rectangle {
        id: background

        width: childrenRect.width
        height: childrenRect.height
        radius: height / 2
        color: "#66000000"
    }
}
