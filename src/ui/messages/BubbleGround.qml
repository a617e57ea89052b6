// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// What a message stands on: round, but for the lower corner on the side of whoever sent it. A part
// of a longer message goes on squarely.
RoundedCorner {
    required property bool isRight
    property bool isFirst: true
    property bool isLast: true

    readonly property int upper: isFirst ? RoundedImage.TopLeft | RoundedImage.TopRight : 0
    readonly property int lower: isLast ? isRight ? RoundedImage.BottomLeft
                                                  : RoundedImage.BottomRight : 0

    radius: 16
    corners: upper | lower
}
