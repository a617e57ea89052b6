// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An animation that begins and ends slowly.
NumberAnimation {
    duration: Metrics.SlideDuration
    easing.type: Easing.InOutQuad
}
