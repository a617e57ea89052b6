// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of the list of tickets while it loads.
Item {
    id: skeleton

    implicitHeight: rows.implicitHeight + 10
    Accessible.role: Accessible.StaticText
    Accessible.name: Strings.string("accessibility_loading")

    Column {
        id: rows

        x: 20
        y: 10
        width: parent.width - 40
        spacing: 8

        RedactedText {
            width: parent.width
            height: implicitHeight + 8
            text: "Your conversations"
            font.pixelSize: Theme.footnote
            font.bold: true
            maximumLineCount: 1
            tint: Theme.fontBasicColor
        }

        Repeater {
            model: 3

            Item {
                width: rows.width
                height: row.height + 10

                SkeletonTicketItem {
                    id: row

                    width: parent.width
                }
            }
        }
    }
}
