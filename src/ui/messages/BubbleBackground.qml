// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The background of a message. Its corners are rounded, except for the lower one on the side of the
// sender, and those between the rows of a long message.
RoundedRectangle {
    required property bool isRight
    property bool isFirst: true
    property bool isLast: true

    readonly property int upper: isFirst ? RoundedRectangle.TopLeft | RoundedRectangle.TopRight : 0
    readonly property int lower: isLast ? isRight ? RoundedRectangle.BottomLeft
                                                  : RoundedRectangle.BottomRight : 0

    radius: Metrics.BubbleRadius
    corners: upper | lower
}
