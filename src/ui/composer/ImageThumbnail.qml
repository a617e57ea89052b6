// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A picture that is attached, as a square, with a button to remove it.
Item {
    id: thumbnail

    required property var image
    /// For those who hear it.
    required property string name
    required property string removeName
    property bool isCurrent: false

    signal removed()

    width: height
    Accessible.role: Accessible.Graphic
    Accessible.name: name

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Theme.chatBackgroundColor

        // While it is being decoded, and behind what can be seen through.
        Rectangle {
            anchors.fill: parent
            radius: 10
            color: Qt.alpha(Theme.fontBasicColor, 0.12)
        }
    }

    RoundedImage {
        anchors.fill: parent
        image: thumbnail.image // qmllint disable
        fillMode: RoundedImage.Fill
        radius: 10
    }

    FocusRing {
        radius: 12
        tint: Theme.fontBasicColor
        isShown: thumbnail.isCurrent
    }

    // To be hit by a finger it reaches beyond what is drawn, into the corner.
    MouseArea {
        anchors.top: parent.top
        anchors.right: parent.right
        width: 40
        height: 40
        cursorShape: Qt.PointingHandCursor
        Accessible.role: Accessible.Button
        Accessible.name: thumbnail.removeName
        Accessible.onPressAction: thumbnail.removed()
        onClicked: thumbnail.removed()

        Rectangle {
            anchors.centerIn: parent
            width: 20
            height: 20
            radius: 10
            color: "#99ffffff"

            Icon {
                anchors.centerIn: parent
                width: 12
                height: 12
                name: "close"
                color: "#99000000"
            }
        }
    }
}
