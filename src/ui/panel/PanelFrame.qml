// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The content of the panel, with its rounded corners, outline and shadow. In the other forms it only
// clips: the renderer has a shader program for items in a clip and another for those outside, and the
// views below clip anyway. A layer would clip at several times the cost, because it draws into a
// texture first, in each frame of the host.
Item {
    id: frame

    required property bool isPanel
    required property real radius
    default property alias content: clip.data

    RoundedShadow {
        y: 4
        width: parent.width
        height: parent.height
        visible: frame.isPanel
        radius: frame.radius
        reach: 14
        color: Qt.rgba(0, 0, 0, 0.17)
    }
    RoundedClip {
        id: clip

        anchors.fill: parent
        radius: frame.radius
    }
    // Opaque, since it hides the edge of the clip.
    RoundedRectangle {
        readonly property color ground: Theme.chatBackgroundColor

        anchors.fill: parent
        anchors.margins: -1
        visible: frame.isPanel
        radius: frame.radius > 0 ? frame.radius + 1 : 0
        rim: 1
        color: Qt.tint(ground, Qt.alpha(ground.hslLightness < 0.5 ? "white" : "black", 0.2))
    }
}
