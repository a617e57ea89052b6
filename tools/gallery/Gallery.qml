// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// All ways to show a picture, and all icons, on one page for inspection by eye.
Rectangle {
    id: gallery

    /// Decoded pictures: a wide one, a tall one, and a large one with fine detail.
    required property var wide
    required property var tall
    required property var detailed
    /// The URL of a picture, and a URL that never gets a response.
    required property url pictureUrl
    required property url silentUrl

    readonly property int cell: 150
    readonly property bool isDark: Theme.isDark

    width: grid.implicitWidth + 48
    height: grid.implicitHeight + icons.height + 72
    color: isDark ? "#16181d" : "#f4f5f7"

    component Cell: Column {
        property alias picture: picture
        property string title

        spacing: 6

        Rectangle {
            width: gallery.cell
            height: gallery.cell
            color: gallery.isDark ? "#262a33" : "#e3e6ec"

            RoundedImage {
                id: picture

                anchors.fill: parent
                image: gallery.wide
            }
        }
        Caption {
            text: parent.title
        }
    }

    component Caption: Text {
        textFormat: Text.PlainText
        color: gallery.isDark ? "white" : "black"
        font.pixelSize: 12
    }

    component IconRow: Row {
        id: row

        required property int iconSize
        required property bool isDark

        spacing: Math.floor((width - 15 * iconSize) / 14)

        Repeater {
            model: ["close", "chevron-left", "photo", "progress", "paperclip", "paperplane", "share",
                    "bubbles", "clock", "lock", "warning", "checkmark-circle", "person-circle",
                    "colored/wave", "colored/robot"]

            Icon {
                required property string modelData

                name: modelData
                color: row.isDark ? "white" : "#14181f"
                width: row.iconSize
                height: width
            }
        }
    }

    Grid {
        id: grid

        x: 24
        y: 24
        columns: 5
        spacing: 20

        Cell { title: "stretch" }
        Cell { title: "fit"; picture.fillMode: RoundedImage.Fit }
        Cell { title: "fill"; picture.fillMode: RoundedImage.Fill }
        Cell { title: "fit, tall"; picture.fillMode: RoundedImage.Fit; picture.image: gallery.tall }
        Cell { title: "fill, tall"; picture.fillMode: RoundedImage.Fill; picture.image: gallery.tall }

        Cell { title: "radius 24"; picture.radius: 24; picture.fillMode: RoundedImage.Fill }
        Cell {
            title: "three corners"
            picture.radius: 24
            picture.fillMode: RoundedImage.Fill
            picture.corners: RoundedImage.TopLeft | RoundedImage.TopRight | RoundedImage.BottomLeft
        }
        Cell { title: "circle"; picture.circle: true; picture.fillMode: RoundedImage.Fill }
        Cell { title: "circle, fit"; picture.circle: true; picture.fillMode: RoundedImage.Fit }
        Cell { title: "radius 24, fit"; picture.radius: 24; picture.fillMode: RoundedImage.Fit }

        Cell { title: "scaled down"; picture.image: gallery.detailed }
        Cell { title: "scaled down, circle"; picture.image: gallery.detailed; picture.circle: true }
        Cell {
            title: "rotated, translucent"
            picture.radius: 24
            picture.fillMode: RoundedImage.Fill
            picture.rotation: 12
            picture.scale: 0.8
            picture.opacity: 0.6
        }
        Column {
            spacing: 6

            ThumbnailAsyncImage {
                width: gallery.cell
                height: gallery.cell
                url: gallery.pictureUrl
                thumbnailSize: Qt.size(gallery.cell, gallery.cell)
                content: RoundedImage {
                    fillMode: RoundedImage.Fill
                    radius: 10
                }
            }
            Caption { text: "thumbnail" }
        }
        Column {
            spacing: 6

            Rectangle {
                width: gallery.cell
                height: gallery.cell
                color: "#7d88a1"

                CachedAsyncImage {
                    anchors.fill: parent
                    url: gallery.silentUrl
                }
            }
            Caption { text: "placeholder" }
        }
    }

    Column {
        id: icons

        readonly property var sizes: [18, 24, 44]

        // Computed, not laid out, because the window takes its size from it at the start.
        height: sizes.reduce((sum, size) => sum + size + spacing, -spacing)
        anchors { left: grid.left; right: grid.right; top: grid.bottom; topMargin: 24 }
        spacing: 12

        Repeater {
            model: icons.sizes

            IconRow {
                required property int modelData

                iconSize: modelData
                isDark: gallery.isDark
                width: icons.width
            }
        }
    }
}
