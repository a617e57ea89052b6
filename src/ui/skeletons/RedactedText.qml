// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick

// The placeholder of a text: bars with the lengths of its lines.
Item {
    id: redacted

    property alias text: sample.text
    property alias font: sample.font
    property color tint
    property alias maximumLineCount: sample.maximumLineCount

    implicitWidth: sample.implicitWidth
    implicitHeight: sample.implicitHeight
    Accessible.ignored: true

    Text {
        id: sample

        width: redacted.width
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        opacity: 0
        Accessible.ignored: true
    }

    Column {
        anchors.fill: parent

        Repeater {
            model: sample.lineCount

            Item {
                id: line

                required property int index

                width: sample.width
                height: sample.height / sample.lineCount

                SkeletonBox {
                    anchors.left: parent.left
                    anchors.verticalCenter: parent.verticalCenter
                    width: Math.min(sample.contentWidth, line.width) *
                           (sample.lineCount > 1 && line.index === sample.lineCount - 1 ? 0.6 : 1)
                    height: parent.height * 0.75
                    tint: redacted.tint
                }
            }
        }
    }
}
