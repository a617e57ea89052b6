// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// One picture of a message; a tap opens it. Without a URL it is invisible.
Item {
    id: cell

    required property int index
    required property url imageUrl
    required property real cornerRadius
    /// The number of further pictures that are not shown.
    required property int remainingCount
    required property int totalCount

    signal pressed()
    signal opened()

    function open() {
        if (!isEmpty)
            opened()
    }

    readonly property bool isEmpty: String(imageUrl).length === 0

    visible: !isEmpty
    activeFocusOnTab: true
    Accessible.role: Accessible.Button
    Accessible.name: Strings.string("accessibility_attachment").replace("%1", index + 1)
                                                         .replace("%2", totalCount)
    Accessible.focusable: true
    Accessible.onPressAction: open()
    Keys.onReturnPressed: open()
    Keys.onEnterPressed: open()
    Keys.onSpacePressed: open()

    ThumbnailAsyncImage {
        anchors.fill: parent
        url: cell.imageUrl
        thumbnailSize: Qt.size(cell.width, cell.height)

        content: RoundedImage {
            fillMode: RoundedImage.Fill
            radius: cell.cornerRadius
        }
        placeholder: Rectangle {
            radius: cell.cornerRadius
            color: "#33808080"

            ProgressIndicator {
                anchors.centerIn: parent
                tint: Theme.accentColor
            }
        }
    }

    // Few cells need it, and rows with pictures are the most expensive to create during a flick.
    Loader {
        anchors.fill: parent
        active: cell.remainingCount > 0
        sourceComponent: Rectangle {
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

    FocusRing {
        radius: cell.cornerRadius + 2
        tint: Theme.fontBasicColor
    }

    TapHandler {
        onTapped: {
            cell.pressed()
            cell.open()
        }
    }

    HoverHandler {
        cursorShape: Qt.PointingHandCursor
    }
}
