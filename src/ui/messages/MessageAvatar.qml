// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The avatar of a message's sender, 32 by 32 pixels.
Loader {
    id: avatar

    /// "picture", "person", "ai" or "none"
    required property string kind
    property url picture

    width: 32
    height: 32
    active: kind !== "none"
    sourceComponent: kind === "person" ? person : other

    Component {
        id: person

        Icon {
            name: "person-circle"
            color: Theme.bubbleAgentColor
            opacity: 0.75
        }
    }

    Component {
        id: other

        TicketIcon {
            kind: avatar.kind
            picture: avatar.picture
        }
    }
}
