// SPDX-License-Identifier: MIT
import Tolvane.Private

// Shown until the picture is loaded.
ImagePlaceholder {
    // Only a picture has a size.
    implicitWidth: 0
    implicitHeight: 0
    tint: "white"
    indicatorScale: 1.5
    brokenSize: Metrics.SmallNoticeIconSize
}
