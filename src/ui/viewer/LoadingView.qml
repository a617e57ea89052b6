// SPDX-License-Identifier: MIT
import Tolvane.Private

// Shown until the picture is loaded.
ImagePlaceholder {
    tint: "white"
    indicatorScale: 1.5
    retriesOnPress: false
    brokenSize: Metrics.SmallNoticeIconSize
}
