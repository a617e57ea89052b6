// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Attaches image files that are dropped on a conversation. Shows a hint during the drag.
DropArea {
    id: area

    required property ComposerData composer

    onEntered: drag => drag.accepted = area.composer.canDrop(drag.urls)
    onDropped: drop => {
        area.composer.drop(drop.urls)
        // The files are copied, never moved.
        drop.accept(Qt.CopyAction)
    }

    Rectangle {
        anchors.fill: parent
        anchors.margins: Metrics.SmallPadding
        radius: Metrics.PanelRadius
        color: Qt.alpha(Theme.chatBackgroundColor, 0.92)
        border.width: 2
        border.color: Theme.fontBasicColor
        opacity: area.containsDrag ? 1 : 0
        visible: opacity > 0

        Behavior on opacity {
            NumberAnimation { duration: Metrics.ShortDuration }
        }

        Column {
            anchors.centerIn: parent
            width: parent.width - 2 * Metrics.Padding
            spacing: 12

            Icon {
                anchors.horizontalCenter: parent.horizontalCenter
                width: 40
                height: 40
                name: "photo"
                color: Theme.fontBasicColor
            }
            Text {
                width: parent.width
                text: Strings.string("composer_drop_hint")
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignHCenter
                color: Theme.fontBasicColor
                font.pixelSize: Theme.title3
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }
}
