// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The first pictures of a message, on the side of the sender.
Item {
    id: grid

    /// URLs as strings.
    property alias attachments: layout.attachments
    required property bool isCustomer
    property alias maxGridSize: layout.maxGridSize
    property real spacing: Metrics.LineSpacing
    property real cornerRadius: Metrics.PictureRadius

    signal pressed()
    signal opened(url imageUrl)
    signal menuRequested(AttachmentThumbnail cell, point position)

    function open(index) {
        (cells.itemAt(index) as AttachmentThumbnail).open()
    }

    // Also the side of the cells in a row that is not full.
    readonly property bool isRight: isCustomer !== LayoutMirroring.enabled

    implicitWidth: layout.columns * (layout.cellSize + spacing) - spacing
    implicitHeight: layout.rows * (layout.cellSize + spacing) - spacing

    AttachmentsLayout {
        id: layout
    }

    Repeater {
        id: cells

        model: layout.count

        AttachmentThumbnail {
            id: cell

            readonly property int row: Math.floor(index / layout.columns)
            readonly property int column: index % layout.columns
            // The number of cells between this one and the sender's side.
            readonly property int cellsFromEdge: grid.isCustomer ? Math.min(layout.columns, layout.count
                                                              - row * layout.columns) - 1 - column
                                                            : column
            readonly property real distance: cellsFromEdge * (layout.cellSize + grid.spacing)

            x: grid.isRight ? grid.width - width - distance : distance
            y: row * (layout.cellSize + grid.spacing)
            width: layout.cellSize
            height: layout.cellSize
            // Reads `total`, because its notification re-evaluates the binding.
            imageUrl: index < layout.total ? layout.url(index) : ""
            cornerRadius: grid.cornerRadius
            remainingCount: index < layout.total ? layout.remaining(index) : 0
            totalCount: layout.total
            onTapped: grid.pressed()
            onOpened: grid.opened(imageUrl)
            onMenuRequested: position => grid.menuRequested(cell, position)
        }
    }
}
