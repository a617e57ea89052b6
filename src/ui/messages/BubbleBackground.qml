// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The background of a message: rounded, except for the lower corner on the side of the sender. The
// parts of a long message have square corners between them.
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
