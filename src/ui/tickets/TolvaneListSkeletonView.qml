// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The placeholder of the list of tickets while it loads.
Item {
    id: skeleton

    implicitHeight: rows.implicitHeight + Metrics.Spacing
    Accessible.role: Accessible.StaticText
    Accessible.name: Strings.string("accessibility_loading")

    Column {
        id: rows

        x: Metrics.WidePadding
        y: Metrics.Spacing
        width: parent.width - 2 * Metrics.WidePadding
        spacing: Metrics.SmallSpacing

        RedactedText {
            width: parent.width
            height: implicitHeight + Metrics.SmallSpacing
            text: "Your conversations"
            pixelSize: Theme.footnote
            isBold: true
            maximumLineCount: 1
            tint: Theme.fontBasicColor
        }

        Repeater {
            model: 3

            Item {
                width: rows.width
                height: row.height + Metrics.Spacing

                SkeletonTicketItem {
                    id: row

                    width: parent.width
                }
            }
        }
    }
}
