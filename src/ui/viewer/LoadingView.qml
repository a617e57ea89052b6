// SPDX-License-Identifier: MIT
import Tolvane.Private

// The placeholder of the viewer's picture.
ImagePlaceholder {
    // An implicit size means that there is a picture.
    implicitWidth: 0
    implicitHeight: 0
    tint: "white"
    indicatorScale: 1.5
    brokenSize: Metrics.SmallNoticeIconSize
}
