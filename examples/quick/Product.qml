// SPDX-License-Identifier: MIT
import QtQuick

// A product with its picture and price.
Rectangle {
    id: product

    required property ShopColors colors
    required property string name
    required property string price
    required property string picture
    required property color tint

    implicitHeight: background.height + texts.implicitHeight + 32
    radius: 14
    color: colors.card
    Accessible.role: Accessible.StaticText
    Accessible.name: name + ", " + price

    Rectangle {
        id: background

        x: 8
        y: 8
        width: parent.width - 16
        height: width * 0.82
        radius: 10
        color: Qt.tint(product.colors.card, Qt.alpha(product.tint, product.colors.isDark ? 0.45 : 0.16))

        Image {
            anchors.centerIn: parent
            width: parent.height * 0.92
            height: width
            sourceSize: Qt.size(360, 360)
            source: "qrc:/pictures/" + product.picture + ".svg"
            Accessible.ignored: true
        }
    }
    Column {
        id: texts

        x: 14
        anchors.top: background.bottom
        anchors.topMargin: 10
        width: parent.width - 28
        spacing: 2

        Text {
            width: parent.width
            text: product.name
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.pixelSize: 15
            font.weight: Font.DemiBold
            color: product.colors.text
            Accessible.ignored: true
        }
        Text {
            width: parent.width
            text: product.price
            textFormat: Text.PlainText
            font.pixelSize: 14
            color: product.colors.secondaryText
            Accessible.ignored: true
        }
    }
}
