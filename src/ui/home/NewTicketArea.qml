// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The floating button for a new ticket, over the list. It is hidden while the list loads.
Item {
    id: area

    required property bool isPresent
    required property bool hasDraft
    /// The distance to the lower edge of the window.
    property real bottomInset

    signal clicked()

    implicitHeight: button.implicitHeight
    visible: button.y < height + Metrics.FloatingMargin
    enabled: isPresent

    // Hides the rows between the button and the lower edge of the window.
    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        y: button.y + button.height / 2
        height: parent.height + area.bottomInset - y
        visible: height > 0
        color: Theme.chatBackgroundColor
    }

    TolvaneNewTicketButton {
        id: button

        y: area.isPresent ? 0 : area.height + 2 * Metrics.FloatingMargin
        x: Theme.columnInset(parent.width, 0)
        width: parent.width - 2 * x
        title: "Send us a message"
        subtitle: (area.hasDraft ? Strings.string("ticket_draft") + " · " : "")
                  + "We typically reply in a few minutes."
        onClicked: area.clicked()

        Behavior on y {
            NumberAnimation { duration: 100; easing.type: Easing.OutQuad }
        }
    }
}
