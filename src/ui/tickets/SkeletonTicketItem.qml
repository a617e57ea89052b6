// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of a ticket's row.
RoundedRectangle {
    id: row

    readonly property color tint: Qt.alpha(Theme.fontAgentBubbleColor, 0.6)

    implicitHeight: lines.implicitHeight + 2 * Metrics.Padding
    radius: Metrics.SkeletonRadius
    color: Qt.alpha(Theme.bubbleAgentColor, 0.4)

    Column {
        id: lines

        x: Metrics.Padding
        y: Metrics.Padding
        width: parent.width - 2 * Metrics.Padding
        spacing: Metrics.SmallSpacing

        RedactedText {
            width: parent.width
            text: "Ticket subject line goes here"
            pixelSize: Theme.callout
            isBold: true
            maximumLineCount: 1
            tint: row.tint
        }
        RedactedText {
            width: parent.width
            text: "This is a preview of the last message in the conversation that spans two lines"
            pixelSize: Theme.footnote
            maximumLineCount: 2
            tint: row.tint
        }
        RedactedText {
            width: parent.width
            // With a letter in the icon's place, which every font has.
            text: "O 2 hours ago"
            pixelSize: Theme.caption
            maximumLineCount: 1
            tint: row.tint
        }
    }

    Shimmer { }
}
