// SPDX-License-Identifier: MIT
import QtQuick

// What lies over the picture and hides with the other controls, on a dark ground of its own: the
// picture may be as white as what is on it.
FocusScope {
    id: control

    required property bool showControls
    default property alias content: ground.data

    implicitWidth: ground.childrenRect.width
    implicitHeight: ground.childrenRect.height
    enabled: showControls
    opacity: showControls ? 1 : 0
    visible: opacity > 0

    Behavior on opacity {
        NumberAnimation { duration: 250; easing.type: Easing.InOutQuad }
    }

    // A press beside what is to be pressed, or on what is not ready, is none on the picture.
    MouseArea { anchors.fill: parent }

    Rectangle {
        id: ground

        width: childrenRect.width
        height: childrenRect.height
        radius: height / 2
        color: "#66000000"
    }
}
