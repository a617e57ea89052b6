// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A line that reports a failure, with a button to try again.
Rectangle {
    id: line

    required property string text

    signal retryRequested()

    implicitHeight: Math.max(label.implicitHeight, button.implicitHeight) + Metrics.SmallPadding
    radius: Metrics.ItemRadius
    color: Qt.tint(Theme.chatBackgroundColor, Qt.alpha(Theme.redColor, 0.12))
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Text {
        id: label

        anchors.left: parent.left
        anchors.leftMargin: Metrics.Spacing
        anchors.right: button.left
        anchors.rightMargin: Metrics.SmallSpacing
        anchors.verticalCenter: parent.verticalCenter
        text: line.text
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        color: Theme.fontBasicColor
        font.pixelSize: Theme.footnote
        Accessible.ignored: true
    }

    TextButton {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: Metrics.LineSpacing
        anchors.verticalCenter: parent.verticalCenter
        name: Strings.string("error_retry")
        color: Theme.fontBasicColor
        textSize: Theme.footnote
        onClicked: line.retryRequested()
    }
}
