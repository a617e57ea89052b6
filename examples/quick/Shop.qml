// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window

// A small shop, as a host of the messenger.
Window {
    id: shop

    width: 420
    height: 800
    visible: true
    title: "Nordlicht Outdoor"
    color: "#f3f1ec"

    component Tile: Rectangle {
        id: tile

        property string name
        property string price
        property color shade

        width: (shop.width - 60) / 2
        height: width * 1.25
        radius: 16
        color: "white"

        Rectangle {
            x: 10
            y: 10
            width: parent.width - 20
            height: parent.height - 76
            radius: 10
            gradient: Gradient {
                GradientStop { position: 0; color: Qt.lighter(tile.shade, 1.4) }
                GradientStop { position: 1; color: tile.shade }
            }
        }
        Text {
            x: 14
            anchors.bottom: priceText.top
            anchors.bottomMargin: 2
            text: tile.name
            font.pixelSize: 15
            font.weight: Font.DemiBold
            color: "#22303c"
        }
        Text {
            id: priceText

            x: 14
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 12
            text: tile.price
            font.pixelSize: 14
            color: "#6b7680"
        }
    }

    Text {
        id: name

        x: 20
        y: 28
        text: shop.title
        font.pixelSize: 26
        font.bold: true
        color: "#22303c"
    }

    Grid {
        x: 20
        anchors.top: name.bottom
        anchors.topMargin: 20
        columns: 2
        spacing: 20

        Tile { name: "Fjell 30 pack"; price: "129 €"; shade: "#3f6b5c" }
        Tile { name: "Regn shell"; price: "219 €"; shade: "#35637f" }
        Tile { name: "Ull base layer"; price: "79 €"; shade: "#a4643a" }
        Tile { name: "Stjerne lamp"; price: "45 €"; shade: "#c99a3b" }
    }

    Rectangle {
        objectName: "helpButton"
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: 20
        width: label.implicitWidth + 48
        height: 52
        radius: 26
        color: area.pressed ? "#1b2730" : "#22303c"

        Text {
            id: label

            anchors.centerIn: parent
            text: "Help"
            font.pixelSize: 17
            font.weight: Font.DemiBold
            color: "white"
        }
        MouseArea {
            id: area

            anchors.fill: parent
            onClicked: help.open()
        }
    }
}
