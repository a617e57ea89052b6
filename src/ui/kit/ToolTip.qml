// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A text below its parent, or above it at the end of the window, shown while the mouse rests on the
// parent. It is above all other items of the window, and takes no events.
Item {
    id: tip

    required property string text
    required property bool isWanted

    property bool isShown: false

    function place() {
        const item = anchorItem
        const edge = item.mapToItem(null, item.width / 2, item.height)
        const above = item.mapToItem(null, 0, 0).y - box.height - 6
        box.x = Math.max(4, Math.min(edge.x - box.width / 2, item.Window.width - box.width - 4))
        box.y = edge.y + box.height + 10 > item.Window.height ? above : edge.y + 6
    }

    readonly property Item anchorItem: parent

    onIsWantedChanged: if (!isWanted) isShown = false

    Timer {
        interval: 700
        running: tip.isWanted && tip.text.length > 0
        onTriggered: {
            tip.isShown = true
            tip.place()
        }
    }

    // Not before it is shown: its font is one that the screen may not need.
    Loader {
        id: box

        parent: tip.isShown ? tip.anchorItem.Window.contentItem : tip
        z: 2000002
        active: tip.isShown
        sourceComponent: Rectangle {
            implicitWidth: label.width + 16
            implicitHeight: label.height + 8
            radius: 6
            color: Theme.isDark ? "#f2f2f2" : "#262629"

            Text {
                id: label

                anchors.centerIn: parent
                width: Math.min(implicitWidth, 280)
                text: tip.text
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                maximumLineCount: 6
                elide: Text.ElideRight
                font.pixelSize: Theme.caption
                color: Theme.isDark ? "#262629" : "#f2f2f2"
                Accessible.ignored: true
            }
        }
    }
}
