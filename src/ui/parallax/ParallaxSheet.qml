// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The visible part of the list: its rows and, below them, the background with rounded corners,
// which moves with the top of the content. The background is not an item of the list, so that it
// fills the sheet even if the list has few rows.
Item {
    id: sheet

    required property color background
    /// The upper edge of the content; 0 once it has reached the top of the sheet.
    required property real contentTop
    /// Clips the content to the corners, too.
    required property bool clipsCorners

    clip: true
    // The software renderer has no effects: there, only the background has rounded corners.
    layer.enabled: clipsCorners && GraphicsInfo.api !== GraphicsInfo.Software
    layer.effect: RoundedClipEffect { }

    RoundedRectangle {
        y: sheet.contentTop
        width: parent.width
        height: sheet.height - y
        corners: RoundedRectangle.TopLeft | RoundedRectangle.TopRight
        radius: sheet.layer.enabled ? 0 : Parallax.contentCornerRadius
        color: sheet.background

        // Keeps events on the sheet from the header below it.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            Accessible.ignored: true
        }
    }
}
