// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Tolvane

// A small shop that hosts the messenger.
Window {
    id: shop

    required property QtObject support

    readonly property ShopColors colors: ShopColors { }
    readonly property int margin: width < 360 ? 12 : 20
    readonly property int contentWidth: Math.min(width, 1160) - 2 * margin

    width: 412
    height: 860
    minimumWidth: 280
    minimumHeight: 320
    visible: true
    title: "Nordlicht Outdoor"
    color: colors.background

    Flickable {
        anchors.fill: parent
        contentHeight: page.height + help.height + 3 * shop.margin
        boundsBehavior: Flickable.StopAtBounds

        Column {
            id: page

            width: shop.width
            spacing: shop.margin

            Hero {
                width: parent.width
                height: Math.min(width * 0.62, 320, shop.height * 0.45)
                title: shop.title
                margin: shop.margin
            }

            Grid {
                id: products

                readonly property real cellWidth: (width - (columns - 1) * spacing) / columns

                x: (shop.width - width) / 2
                width: shop.contentWidth
                columns: Math.max(2, Math.min(6, Math.floor(width / 170)))
                spacing: shop.margin * 0.8

                Repeater {
                    model: [
                        { name: "Fjell 30 pack", price: "129 €", picture: "pack", tint: "#3f7f6c" },
                        { name: "Regn shell", price: "219 €", picture: "shell", tint: "#3d7ea6" },
                        { name: "Ull base layer", price: "79 €", picture: "layer", tint: "#c9744a" },
                        { name: "Stjerne lamp", price: "45 €", picture: "lamp", tint: "#c99a3b" },
                        { name: "Telt for two", price: "349 €", picture: "tent", tint: "#6f8f5c" },
                        { name: "Kaffe mug", price: "19 €", picture: "mug", tint: "#a8667a" }
                    ]

                    Product {
                        required property var modelData

                        width: products.cellWidth
                        colors: shop.colors
                        name: modelData.name
                        price: modelData.price
                        picture: modelData.picture
                        tint: modelData.tint
                    }
                }
            }
        }
    }

    HelpButton {
        id: help

        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: shop.margin
        focus: true
    }

    PushBanner {
        width: Math.min(shop.width - 2 * shop.margin, 420)
        anchors.horizontalCenter: parent.horizontalCenter
        colors: shop.colors
        support: shop.support
    }
}
