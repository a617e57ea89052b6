// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The base of the controls over the picture, which hide together. The dark background makes white
// controls visible over white pictures.
FocusScope {
    id: control

    required property bool showControls
    default property alias content: background.data
    /// The background over a white picture, on which a focus ring has to be seen.
    readonly property color lightestGround: Qt.tint("white", background.color)

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
        color: "#a6000000"
    }
}
