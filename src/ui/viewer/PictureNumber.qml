// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Which of the message's pictures is shown. The picture itself tells screen readers.
ViewerControl {
    id: number

    required property PictureSequence pictures

    Item {
        width: label.implicitWidth + 2 * Metrics.Padding
        height: Metrics.ButtonSize

        Text {
            id: label

            anchors.centerIn: parent
            text: (number.pictures.index + 1) + " / " + number.pictures.count
            textFormat: Text.PlainText
            color: "white"
            font.pixelSize: Theme.callout
            Accessible.ignored: true
        }
    }
}
