// SPDX-License-Identifier: MIT
import QtQuick

// Opens the messenger.
Rectangle {
    id: button

    required property ShopColors colors

    signal clicked()

    implicitWidth: label.implicitWidth + 56
    implicitHeight: 52
    radius: 26
    color: area.pressed ? Qt.darker(colors.accent, 1.2) : colors.accent
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: label.text
    Accessible.description: "Opens the messenger"
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    Rectangle {
        anchors.fill: parent
        anchors.margins: -4
        radius: height / 2
        color: "transparent"
        border.width: 2
        border.color: button.colors.accent
        visible: button.activeFocus
    }
    Text {
        id: label

        anchors.centerIn: parent
        text: "Help"
        textFormat: Text.PlainText
        font.pixelSize: 17
        font.weight: Font.DemiBold
        color: button.colors.accentText
        Accessible.ignored: true
    }
    MouseArea {
        id: area

        anchors.fill: parent
        cursorShape: Qt.PointingHandCursor
        onClicked: button.clicked()
    }
}
