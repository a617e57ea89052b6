// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A bar in the place of something that is still to come.
RoundedCorner {
    id: box

    property color tint

    radius: 4
    color: Qt.alpha(tint, tint.a * 0.3)
}
