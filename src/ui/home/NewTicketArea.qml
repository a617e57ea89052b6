// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The button for a new ticket as it floats over the list: away while the list loads.
Item {
    id: area

    required property bool isPresent

    signal clicked()

    implicitHeight: button.implicitHeight
    visible: button.y < height + 6
    enabled: isPresent

    TolvaneNewTicketButton {
        id: button

        y: area.isPresent ? 0 : area.height + 12
        width: parent.width
        title: "Send us a message"
        subtitle: "We typically reply in a few minutes."
        onClicked: area.clicked()

        Behavior on y {
            NumberAnimation { duration: 100; easing.type: Easing.OutQuad }
        }
    }
}
