// SPDX-License-Identifier: MIT
import QtQuick

// Shows a push for twelve seconds. A tap opens the messenger.
Rectangle {
    id: banner

    required property ShopColors colors
    required property QtObject support

    property bool isShown

    function open() {
        isShown = false
        support.openPush()
    }

    y: isShown ? 12 : -height - 12
    implicitHeight: Math.max(56, texts.implicitHeight + 24)
    visible: y > -height
    radius: 16
    color: colors.card
    border.width: 1
    border.color: Qt.alpha(colors.text, 0.15)
    activeFocusOnTab: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: support.title + ": " + support.text
    Accessible.focusable: true
    Accessible.onPressAction: open()
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()
    Keys.onSpacePressed: open()
    Keys.onEscapePressed: isShown = false

    Connections {
        target: banner.support

        function onPushReceived() {
            banner.isShown = true
            timer.restart()
        }
    }
    Timer {
        id: timer

        interval: 12000
        onTriggered: banner.isShown = false
    }
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
            color: banner.colors.text
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
            color: banner.colors.secondaryText
            Accessible.ignored: true
        }
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        radius: banner.radius + 3
        color: "transparent"
        border.width: 2
        border.color: banner.colors.accent
        visible: banner.activeFocus
    }
    MouseArea {
        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: banner.open()
    }
}
