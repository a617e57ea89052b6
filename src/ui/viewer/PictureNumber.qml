// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The number of the shown picture among those of the message. Screen readers get it from the name of
// the picture.
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
