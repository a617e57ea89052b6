// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of the button for a new ticket until the settings have arrived.
Item {
    implicitHeight: button.height + 20

    RoundedRectangle {
        id: button

        x: 20
        width: parent.width - 40
        height: lines.implicitHeight + 32
        radius: 12
        color: Qt.alpha(Theme.blueColor, 0.1)

        Column {
            id: lines

            x: 16
            y: 16
            width: parent.width - 32
            spacing: 4

            RedactedText {
                width: parent.width
                text: "Start a new conversation"
                font.pixelSize: Theme.callout
                font.weight: Font.DemiBold
                maximumLineCount: 1
                tint: Theme.fontBasicColor
            }
            RedactedText {
                width: parent.width
                text: "We're here to help"
                font.pixelSize: Theme.footnote
                maximumLineCount: 1
                tint: Theme.secondaryColor
            }
        }
    }
}
