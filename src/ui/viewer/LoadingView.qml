// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shown until the picture is loaded.
Item {
    ProgressIndicator {
        anchors.centerIn: parent
        tint: "white"
        scale: 1.5
    }
}
