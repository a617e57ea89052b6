// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows the result of an action for a few seconds, over the content.
Rectangle {
    id: notice

    function showText(text) {
        label.text = text
        opacity = 1
        hideTimer.restart()
    }

    width: Math.min(label.implicitWidth + 2 * Metrics.Padding, parent.width - 2 * Metrics.Padding)
    height: label.implicitHeight + 2 * Metrics.Spacing
    radius: Math.min(20, height / 2)
    color: "#f2262629"
    border.color: "#33ffffff"
    opacity: 0
    visible: opacity > 0
    Accessible.role: Accessible.AlertMessage
    Accessible.name: label.text

    Behavior on opacity {
        EasedAnimation { duration: Metrics.FadeDuration }
    }

    Text {
        id: label

        anchors.centerIn: parent
        width: parent.width - 2 * Metrics.Padding
        horizontalAlignment: Text.AlignHCenter
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        color: "white"
        font.pixelSize: Theme.callout
        Accessible.ignored: true
    }

    Timer {
        id: hideTimer

        interval: 4000
        onTriggered: notice.opacity = 0
    }
}
