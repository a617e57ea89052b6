// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The avatar of a message's sender, 32 by 32 pixels.
Loader {
    id: avatar

    /// An Avatar.Kind.
    required property int kind
    property url picture

    width: Metrics.AvatarSize
    height: Metrics.AvatarSize
    active: kind !== Avatar.None
    sourceComponent: kind === Avatar.Person ? person : other

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
