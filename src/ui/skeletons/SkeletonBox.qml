// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A bar, the simplest placeholder of content that is loading.
RoundedRectangle {
    id: box

    property color tint

    radius: 4
    color: Qt.alpha(tint, tint.a * 0.3)
}
