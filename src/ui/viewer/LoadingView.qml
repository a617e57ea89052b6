// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Turns until the picture is there.
Item {
    ProgressIndicator {
        anchors.centerIn: parent
        tint: "white"
        scale: 1.5
    }
}
