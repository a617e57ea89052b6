// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The line below a bubble.
Text {
    id: caption

    /// Date and time of the message; empty for a message without a valid time.
    property string time

    horizontalAlignment: Text.AlignLeft
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    color: Theme.fontBasicColor
    opacity: 0.7
    font.pixelSize: Theme.caption
    Accessible.ignored: true

    TimeToolTip {
        line: caption
        time: caption.time
    }
}
