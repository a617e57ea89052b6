// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows the other side of a conversation, and whether support is available. A tap goes back.
Item {
    id: header

    required property string title
    /// If it is empty, its line is hidden.
    required property string subtitle
    required property bool isSupportAvailable

    signal dismissRequested()

    implicitHeight: 44
    Accessible.role: Accessible.Heading
    Accessible.name: subtitle.length > 0 ? title + ", " + subtitle : title

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: -Metrics.SmallPadding
        anchors.rightMargin: -Metrics.SmallPadding
        radius: Metrics.ItemRadius
        color: Theme.accentColor
        opacity: hover.hovered ? 0.08 : 0
    }

    HoverHandler {
        id: hover

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        cursorShape: Qt.PointingHandCursor
    }

    Column {
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width
        spacing: 2

        Text {
            width: parent.width
            text: header.title
            textFormat: Text.PlainText
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            color: Theme.accentColor
            // Limited, as the bar has a fixed height.
            font.pixelSize: Math.min(Theme.callout, 20)
            font.weight: Font.DemiBold
            // The same line height for all scripts.
            lineHeightMode: Text.FixedHeight
            lineHeight: Math.ceil(font.pixelSize * 1.3)
            Accessible.ignored: true
        }
        Row {
            visible: header.subtitle.length > 0
            width: parent.width
            spacing: 6

            Text {
                width: Math.min(implicitWidth, parent.width - 14)
                text: header.subtitle
                textFormat: Text.PlainText
                elide: Text.ElideRight
                color: Theme.fontBasicColor
                opacity: 0.8
                font.pixelSize: Math.min(Theme.caption, 15)
                lineHeightMode: Text.FixedHeight
                lineHeight: Math.ceil(font.pixelSize * 1.3)
                Accessible.ignored: true
            }
            RoundedRectangle {
                anchors.verticalCenter: parent.verticalCenter
                width: 8
                height: 8
                radius: 4
                color: header.isSupportAvailable ? Theme.greenColor : Theme.grayColor
            }
        }
    }

    TapHandler {
        onTapped: header.dismissRequested()
    }
}
