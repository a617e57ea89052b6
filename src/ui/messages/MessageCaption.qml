// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The line below a bubble.
Text {
    id: caption

    /// The timestamp of the message; empty without one.
    property string timestamp

    horizontalAlignment: Text.AlignLeft
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    color: Theme.fontBasicColor
    opacity: 0.7
    font.pixelSize: Theme.caption
    Accessible.ignored: true

    TimeToolTip {
        line: caption
        timestamp: caption.timestamp
    }
}
