// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The title over the rows, which stays while they pass under it. As wide as they are, so that it
// leaves the corners of the sheet alone.
Item {
    implicitHeight: title.implicitHeight + 18

    Rectangle {
        x: 16
        width: parent.width - 32
        height: parent.height
        color: Theme.chatBackgroundColor
    }

    Text {
        id: title

        x: Theme.columnInset(parent.width, 16)
        y: 10
        width: parent.width - 2 * x
        text: Texts.string("ticket_list_your_messages")
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
