// SPDX-License-Identifier: MIT
import QtQuick

// Tells of a push, for a while. A tap leads to the messenger.
Rectangle {
    id: banner

    required property Look look
    required property QtObject support

    signal clicked()

    y: support.isShown ? 12 : -height - 12
    implicitHeight: Math.max(56, texts.implicitHeight + 24)
    visible: y > -height
    radius: 16
    color: look.card
    border.width: 1
    border.color: Qt.alpha(look.text, 0.15)
    activeFocusOnTab: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: support.title + ": " + support.text
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()
    Keys.onEscapePressed: support.dismiss()

    Behavior on y {
        NumberAnimation { duration: 250; easing.type: Easing.OutCubic }
    }

    Image {
        id: mark

        x: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 36
        height: 36
        sourceSize: Qt.size(72, 72)
        source: "qrc:/pictures/mark.svg"
        Accessible.ignored: true
    }
    Column {
        id: texts

        anchors.left: mark.right
        anchors.right: parent.right
        anchors.leftMargin: 12
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            text: banner.support.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 15
            font.weight: Font.DemiBold
            color: banner.look.text
            Accessible.ignored: true
        }
        Text {
            width: parent.width
            text: banner.support.text
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
            font.pixelSize: 14
            color: banner.look.quiet
            Accessible.ignored: true
        }
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        radius: banner.radius + 3
        color: "transparent"
        border.width: 2
        border.color: banner.look.strong
        visible: banner.activeFocus
    }
    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: banner.clicked()
    }
}
