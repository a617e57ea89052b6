// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// The attached pictures in a row that scrolls. Arrow keys go through it, Delete and Backspace
// remove a picture.
FocusScope {
    id: thumbnails

    required property ComposerData composer

    readonly property alias count: list.count

    /// Emitted when the last picture is removed while the row has the focus.
    signal emptied()

    ListView {
        id: list

        anchors.fill: parent
        focus: true
        activeFocusOnTab: count > 0
        orientation: ListView.Horizontal
        spacing: Metrics.Spacing
        leftMargin: Metrics.Spacing
        rightMargin: Metrics.Spacing
        boundsBehavior: Flickable.DragOverBounds
        model: thumbnails.composer.attachments
        Accessible.role: Accessible.List
        Accessible.name: Strings.string("accessibility_attach")
        onCountChanged: {
            scrollTimer.showsNewest = count > scrollTimer.previousCount
            scrollTimer.previousCount = count
            if (scrollTimer.showsNewest || thumbnails.LayoutMirroring.enabled)
                scrollTimer.start()
            if (count === 0 && activeFocus)
                thumbnails.emptied()
        }
        Keys.onDeletePressed: thumbnails.composer.removeAttachment(currentIndex)
        Keys.onPressed: event => {
            if (event.key === Qt.Key_Backspace) {
                event.accepted = true
                thumbnails.composer.removeAttachment(currentIndex)
            }
        }

        add: Transition {
            EasedAnimation { property: "opacity"; from: 0; to: 1 }
        }
        remove: Transition {
            EasedAnimation { property: "opacity"; to: 0 }
        }
        displaced: Transition {
            EasedAnimation { properties: "x,y" }
            EasedAnimation { property: "opacity"; to: 1 }
        }

        delegate: ImageThumbnail {
            required property int index
            required property var picture
            required name

            height: ListView.view.height
            image: picture
            isCurrent: ListView.isCurrentItem && ListView.view.activeFocus
            removeButtonName: Strings.string("accessibility_remove_attachment").arg(name)
            onRemoved: thumbnails.composer.removeAttachment(index)
        }

        // Scrolls to the newest picture. After a removal, scrolls a mirrored list back to its
        // beginning, which ListView does not do.
        Timer {
            id: scrollTimer

            property int previousCount: 0
            property bool showsNewest: false

            interval: 0
            onTriggered: {
                if (showsNewest)
                    list.positionViewAtEnd()
                else
                    list.positionViewAtBeginning()
            }
        }

        // A vertical wheel scrolls the row too.
        WheelHandler {
            acceptedDevices: PointerDevice.Mouse
            onWheel: event => {
                const step = thumbnails.LayoutMirroring.enabled ? event.angleDelta.y
                                                                : -event.angleDelta.y
                list.flick(-step * 8, 0)
            }
        }
    }

    ScrollIndicator {
        flickable: list
        orientation: Qt.Horizontal
    }
}
