// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An icon with a line about what there is instead of the content, and one about what to do.
Item {
    id: notice

    required property string icon
    required property color iconColor
    property string title
    property color titleColor
    property int titleSize: Theme.title3
    property string detail
    property color detailColor
    property int detailSize: Theme.callout
    property int iconSize: 60
    property int padding: 40
    property int spacing: 20
    /// Room for what lies over its lower edge.
    property real bottomMargin: 0

    implicitHeight: column.implicitHeight + 2 * padding + bottomMargin
    Accessible.role: Accessible.StaticText
    Accessible.name: title.length > 0 ? title + ". " + detail : detail

    Column {
        id: column

        anchors.centerIn: parent
        anchors.verticalCenterOffset: -notice.bottomMargin / 2
        width: parent.width - 2 * notice.padding
        spacing: notice.spacing

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            width: notice.iconSize
            height: notice.iconSize
            name: notice.icon
            color: notice.iconColor
        }
        Column {
            width: parent.width
            spacing: 8

            Text {
                width: parent.width
                visible: notice.title.length > 0
                text: notice.title
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                color: notice.titleColor
                font.pixelSize: notice.titleSize
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
                font.pixelSize: notice.detailSize
                Accessible.ignored: true
            }
        }
    }
}
