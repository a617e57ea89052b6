// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of the button for a new ticket until the settings are loaded.
Item {
    implicitHeight: button.height + Metrics.WidePadding

    RoundedRectangle {
        id: button

        x: Metrics.WidePadding
        width: parent.width - 2 * Metrics.WidePadding
        height: lines.implicitHeight + 2 * Metrics.Padding
        radius: Metrics.SkeletonRadius
        color: Qt.alpha(Theme.blueColor, 0.1)

        Column {
            id: lines

            x: Metrics.Padding
            y: Metrics.Padding
            width: parent.width - 2 * Metrics.Padding
            spacing: Metrics.LineSpacing

            RedactedText {
                width: parent.width
                text: "Start a new conversation"
                pixelSize: Theme.callout
                isBold: true
                maximumLineCount: 1
                tint: Theme.fontBasicColor
            }
            RedactedText {
                width: parent.width
                text: "We're here to help"
                pixelSize: Theme.footnote
                maximumLineCount: 1
                tint: Theme.secondaryColor
            }
        }
    }
}
