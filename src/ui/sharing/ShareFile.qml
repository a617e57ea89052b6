// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows the file; can be dragged out of the application.
Item {
    id: file

    required property ImageShare share

    implicitHeight: Math.max(64, texts.implicitHeight + 2 * Metrics.SmallPadding)
    Accessible.ignored: true

    ThumbnailAsyncImage {
        id: picture

        anchors.left: parent.left
        anchors.leftMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        width: 44
        height: 44
        url: file.share.url
        thumbnailSize: Qt.size(width, height)
        placeholder: Item {}
        content: RoundedImage {
            radius: 6
            fillMode: RoundedImage.Fill
        }
    }

    Column {
        id: texts

        anchors.left: picture.right
        anchors.right: parent.right
        anchors.leftMargin: 12
        anchors.rightMargin: 18
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2

        Text {
            width: parent.width
            text: Strings.hostString("Image")
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            color: "white"
            font.pixelSize: Theme.callout
        }
        Text {
            width: parent.width
            text: file.share.filename
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideMiddle
            color: "#99ebebf5"
            font.pixelSize: Theme.caption
        }
    }

    MouseArea {
        id: area

        property point start
        property bool isDragged: false

        anchors.fill: parent
        cursorShape: Qt.OpenHandCursor
        preventStealing: true
        onPressed: mouse => {
            start = Qt.point(mouse.x, mouse.y)
            isDragged = false
        }
        onPositionChanged: mouse => {
            const distance = Math.hypot(mouse.x - start.x, mouse.y - start.y)
            if (isDragged || distance < Application.styleHints.startDragDistance)
                return
            isDragged = true
            file.share.startDrag(area)
        }
    }
}
