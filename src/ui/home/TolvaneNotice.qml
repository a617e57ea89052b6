// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// An icon with a line about what there is instead of the content, and one about what to do.
Item {
    id: notice

    required property string icon
    required property color iconColor
    required property string title
    required property color titleColor
    required property string detail
    required property color detailColor

    implicitHeight: column.implicitHeight + 80
    Accessible.role: Accessible.StaticText
    Accessible.name: title + ". " + detail

    Column {
        id: column

        anchors.centerIn: parent
        width: parent.width - 80
        spacing: 20

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            width: 60
            height: 60
            name: notice.icon
            color: notice.iconColor
        }
        Column {
            width: parent.width
            spacing: 8

            Text {
                width: parent.width
                text: notice.title
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                color: notice.titleColor
                font.pixelSize: Theme.Title3
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }
            Text {
                width: parent.width
                text: notice.detail
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                maximumLineCount: 12
                elide: Text.ElideRight
                color: notice.detailColor
                font.pixelSize: Theme.Callout
                Accessible.ignored: true
            }
        }
    }
}
