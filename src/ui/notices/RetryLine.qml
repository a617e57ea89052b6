// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A line that reports a failure, with a button to try again.
Rectangle {
    id: line

    required property string text

    signal retryRequested()

    /// True if the button is below the text, with large text sizes.
    readonly property bool isStacked: button.implicitWidth > width / 2

    implicitHeight: (isStacked ? label.height + Metrics.LineSpacing + button.height
                               : Math.max(label.height, button.height)) + Metrics.SmallPadding
    radius: Metrics.ItemRadius
    color: Qt.tint(Theme.chatBackgroundColor, Qt.alpha(Theme.redColor, 0.12))
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    Text {
        id: label

        anchors.left: parent.left
        anchors.leftMargin: Metrics.Spacing
        anchors.right: line.isStacked ? parent.right : button.left
        anchors.rightMargin: Metrics.SmallSpacing
        y: line.isStacked ? Metrics.LineSpacing : (line.height - height) / 2
        text: line.text
        textFormat: Text.PlainText
        horizontalAlignment: Text.AlignLeft
        wrapMode: Text.Wrap
        maximumLineCount: 6
        elide: Text.ElideRight
        color: Theme.fontBasicColor
        font.pixelSize: Theme.footnote
        Accessible.ignored: true
    }

    TextButton {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: Metrics.LineSpacing
        y: line.isStacked ? line.height - height - Metrics.LineSpacing : (line.height - height) / 2
        width: Math.min(implicitWidth, line.width - 2 * Metrics.LineSpacing)
        name: Strings.string("error_retry")
        color: Theme.fontBasicColor
        textSize: Theme.footnote
        onClicked: line.retryRequested()
    }
}
