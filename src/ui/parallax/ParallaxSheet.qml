// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// What is seen of the list: its rows and, below them, the ground with rounded corners that goes
// where the content begins. The ground is none of the list's items, so that it fills the sheet
// whatever the list has.
Item {
    id: sheet

    required property color background
    /// Where the content begins; 0 once it has arrived at the top.
    required property real contentTop
    /// Whether what is on the ground may reach into the corners, and has to be cut there, too.
    required property bool cutsCorners

    clip: true
    // The software renderer has no effects: there only the ground is round.
    layer.enabled: cutsCorners && GraphicsInfo.api !== GraphicsInfo.Software
    layer.effect: ParallaxClip { }

    RoundedCorner {
        y: sheet.contentTop
        width: parent.width
        height: sheet.height - y
        corners: RoundedImage.TopLeft | RoundedImage.TopRight
        radius: sheet.layer.enabled ? 0 : Parallax.contentCornerRadius
        color: sheet.background

        // The header lies below, and must not notice what happens on the sheet.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            Accessible.ignored: true
        }
    }
}
