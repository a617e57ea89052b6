// SPDX-License-Identifier: MIT
import QtQuick

// The header of the shop.
Item {
    id: hero

    required property string title
    required property int margin

    Image {
        anchors.fill: parent
        sourceSize: Qt.size(2560, 800)
        fillMode: Image.PreserveAspectCrop
        verticalAlignment: Image.AlignBottom
        source: "qrc:/pictures/hero.svg"
        Accessible.role: Accessible.Graphic
        Accessible.name: "A tent below northern lights"
    }
    Image {
        id: mark

        x: hero.margin
        y: hero.margin
        width: 48
        height: 48
        sourceSize: Qt.size(96, 96)
        source: "qrc:/pictures/mark.svg"
        Accessible.ignored: true
    }
    Column {
        anchors.left: mark.right
        anchors.right: parent.right
        anchors.verticalCenter: mark.verticalCenter
        anchors.leftMargin: 12
        anchors.rightMargin: hero.margin

        Text {
            width: parent.width
            text: hero.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 22
            font.bold: true
            color: "white"
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            width: parent.width
            text: "Made for the far north"
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 14
            color: "#d9efe9"
        }
    }
}
