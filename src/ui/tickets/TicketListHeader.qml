// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The title above the rows, which stays in place while the rows scroll below it. It is as wide as
// the rows, so that it does not cover the corners of the sheet.
Item {
    implicitHeight: title.implicitHeight + Metrics.Spacing + Metrics.SmallSpacing

    Rectangle {
        x: Metrics.Padding
        width: parent.width - 2 * Metrics.Padding
        height: parent.height
        color: Theme.chatBackgroundColor
    }

    Text {
        id: title

        x: Theme.columnInset(parent.width, Metrics.Padding)
        y: Metrics.Spacing
        width: parent.width - 2 * x
        text: Strings.string("ticket_list_your_messages")
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        elide: Text.ElideRight
        color: Theme.fontBasicColor
        font.pixelSize: Theme.footnote
        font.bold: true
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
}
