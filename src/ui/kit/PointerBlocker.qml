// SPDX-License-Identifier: MIT
import QtQuick

// Keeps all pointer events from the items below its parent.
MouseArea {
    anchors.fill: parent
    acceptedButtons: Qt.AllButtons
    hoverEnabled: true
    Accessible.ignored: true
    onWheel: wheel => wheel.accepted = true
}
