// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An item of the share menu.
Item {
    id: item

    required property string text

    signal clicked()

    implicitHeight: 44
    Accessible.role: Accessible.MenuItem
    Accessible.name: text
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()
    Keys.onSpacePressed: clicked()

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        radius: 8
        color: "white"
        opacity: area.pressed ? 0.25 : item.activeFocus || area.containsMouse ? 0.12 : 0
    }

    Text {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 18
        verticalAlignment: Text.AlignVCenter
        text: item.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        color: "white"
        font.pixelSize: Theme.callout
        Accessible.ignored: true
    }

    MouseArea {
        id: area

        anchors.fill: parent
        hoverEnabled: true
        cursorShape: Qt.PointingHandCursor
        onClicked: item.clicked()
    }
}
