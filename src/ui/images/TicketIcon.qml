// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The icon for the other side of a conversation, 32 by 32 pixels.
Loader {
    id: icon

    /// An Avatar.Kind.
    required property int kind
    required property url picture

    width: Metrics.AvatarSize
    height: Metrics.AvatarSize
    sourceComponent: {
        switch (kind) {
        case Avatar.Person: return person
        case Avatar.Picture: return portrait
        case Avatar.AI: return ai
        case Avatar.Closed: return closed
        default: return null
        }
    }

    Component {
        id: closed

        Item {
            // Seen through the check mark, which any branding makes legible then.
            Rectangle {
                anchors.fill: parent
                anchors.margins: parent.width / 4
                radius: width / 2
                color: Theme.accentColor
            }
            Icon {
                anchors.fill: parent
                name: "checkmark-circle"
                color: Theme.primaryColor
            }
        }
    }

    Component {
        id: ai

        RoundedRectangle {
            radius: width / 2
            color: Theme.bubbleAgentColor

            // 🤖 as an icon, since the system may have no font for it.
            Icon {
                anchors.centerIn: parent
                name: "colored/robot"
            }
        }
    }

    Component {
        id: portrait

        CachedAsyncImage {
            url: icon.picture
            content: RoundedImage {
                fillMode: RoundedImage.Fit
                circle: true
            }
        }
    }

    Component {
        id: person

        Icon {
            name: "person-circle"
            color: Qt.alpha(Theme.fontAgentBubbleColor, 0.6)
        }
    }
}
