// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An attached picture as a square, with a button to remove it.
Item {
    id: thumbnail

    /// A QImage.
    required property var image
    /// The names of the picture and of its button for screen readers.
    required property string name
    required property string removeButtonName
    property bool isCurrent: false

    signal removed()

    width: height
    Accessible.role: Accessible.Graphic
    Accessible.name: name

    Rectangle {
        anchors.fill: parent
        radius: Metrics.PictureRadius
        color: Theme.chatBackgroundColor

        // Seen while the picture is being decoded, and behind transparent pictures.
        Rectangle {
            anchors.fill: parent
            radius: Metrics.PictureRadius
            color: Qt.alpha(Theme.fontBasicColor, 0.12)
        }
    }

    RoundedImage {
        anchors.fill: parent
        image: thumbnail.image // qmllint disable
        fillMode: RoundedImage.Fill
        radius: Metrics.PictureRadius
    }

    FocusRing {
        radius: Metrics.PictureRadius + 2
        tint: Theme.fontBasicColor
        isShown: thumbnail.isCurrent
    }

    // Larger than the visible button, up to the corner, so that a finger can hit it.
    Pressable {
        id: remove

        anchors.top: parent.top
        anchors.right: parent.right
        width: Metrics.ComposerButtonSize
        height: Metrics.ComposerButtonSize
        name: thumbnail.removeButtonName
        activeFocusOnTab: false
        Accessible.focusable: false
        onClicked: thumbnail.removed()

        Rectangle {
            anchors.centerIn: parent
            width: 20
            height: 20
            radius: 10
            color: remove.isPressed || remove.isHovered ? "white" : "#99ffffff"

            Icon {
                anchors.centerIn: parent
                width: 12
                height: 12
                name: "close"
                color: "#99000000"
            }
        }

        ToolTip {
            text: remove.name + " (Del)"
            isWanted: remove.isHovered && !remove.isPressed
        }
    }
}
