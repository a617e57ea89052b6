// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// One picture of a message; a press opens it. Without a URL it is invisible.
Pressable {
    id: cell

    required property int index
    required property url imageUrl
    required property real cornerRadius
    /// The number of further pictures that are not shown.
    required property int remainingCount
    required property int totalCount

    readonly property bool isLoaded: !picture.isLoading && !picture.hasFailed

    signal opened()

    function open() {
        if (isEmpty)
            return
        picture.retry()
        opened()
    }

    readonly property bool isEmpty: String(imageUrl).length === 0

    visible: !isEmpty
    name: Strings.string("accessibility_attachment").replace("%1", index + 1)
                                                    .replace("%2", totalCount)
    acceptedButtons: Qt.LeftButton | Qt.RightButton
    focusRing.radius: cornerRadius + 2
    focusRing.tint: Theme.fontBasicColor
    onClicked: open()

    ThumbnailAsyncImage {
        id: picture

        anchors.fill: parent
        opacity: cell.isPressed ? 0.7 : cell.isHovered ? 0.85 : 1
        url: cell.imageUrl
        thumbnailSize: Qt.size(cell.width, cell.height)

        content: RoundedImage {
            fillMode: RoundedImage.Fill
            radius: cell.cornerRadius
        }
        placeholder: ImagePlaceholder {
            tint: Theme.accentColor
            brokenSize: Metrics.SmallNoticeIconSize
            retriesOnPress: false

            RoundedRectangle {
                z: -1
                anchors.fill: parent
                radius: cell.cornerRadius
                color: "#33808080"
            }
        }
    }

    // Loaded on demand: rows with pictures are the most expensive to create during a flick.
    Loader {
        anchors.fill: parent
        active: cell.remainingCount > 0
        sourceComponent: RoundedRectangle {
            radius: cell.cornerRadius
            color: "#99000000"

            Text {
                anchors.centerIn: parent
                text: "+" + cell.remainingCount
                textFormat: Text.PlainText
                color: "white"
                font.pixelSize: 24
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }
        }
    }
}
