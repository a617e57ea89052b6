// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of something that is loading: a bar.
RoundedRectangle {
    id: box

    property color tint

    radius: 4
    color: Qt.alpha(tint, tint.a * 0.3)
}
