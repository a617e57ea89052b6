// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A text on a background with rounded corners.
Item {
    id: bubble

    required property formattedText content
    required property bool isCustomer
    /// The position of the row among those of its message.
    required property bool isFirst
    required property bool isLast
    required property real maximumWidth

    readonly property color tint: isCustomer ? Theme.fontUserBubbleColor
                                             : Theme.fontAgentBubbleColor

    /// The address of the link at a position of the bubble; empty without one.
    function linkAt(position: point): string {
        return label.linkAt(position.x - label.x, position.y - label.y)
    }

    signal linkActivated(string link)
    signal menuRequested(point position)
    /// Emitted when the mouse enters or leaves the text.
    signal hovered(Text text, bool isHovered)
    signal pressed()

    // The text is laid out with the maximum width, and the bubble of a whole message is as wide as its
    // longest line. For rich text, Qt reports only the width without wrapping, which needs a second
    // layout.
    readonly property bool isWhole: isFirst && isLast
    readonly property bool isSurelyWrapped: !isWhole || content.text.length > 4000
    readonly property real textWidth: !content.isRich ? label.contentWidth
                                      : isSurelyWrapped ? label.width
                                                        : Math.min(label.implicitWidth, label.width)

    width: isWhole ? Math.ceil(textWidth) + 2 * Metrics.Padding : maximumWidth
    height: Math.ceil(label.contentHeight) + 2 * Metrics.Padding

    BubbleBackground {
        anchors.fill: parent
        isRight: bubble.isCustomer !== bubble.LayoutMirroring.enabled
        isFirst: bubble.isFirst
        isLast: bubble.isLast
        color: bubble.isCustomer ? Theme.bubbleUserColor : Theme.bubbleAgentColor
    }

    TapHandler {
        acceptedButtons: Qt.LeftButton | Qt.RightButton
        onTapped: (eventPoint, button) => {
            if (button === Qt.RightButton)
                bubble.menuRequested(eventPoint.position)
            else
                bubble.pressed()
        }
    }

    HoverHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        cursorShape: label.hoveredLink.length > 0 ? Qt.PointingHandCursor : Qt.IBeamCursor
        onHoveredChanged: bubble.hovered(label, hovered)
    }

    Text {
        id: label

        // Above the selection.
        z: 1
        x: effectiveHorizontalAlignment === Text.AlignRight ? bubble.width - width - Metrics.Padding
                                                            : Metrics.Padding
        y: Metrics.Padding
        width: bubble.maximumWidth - 2 * Metrics.Padding
        // Qt lays out rich text once more when its height grows from 0.
        height: 1
        Component.onCompleted: height = undefined
        // Links are underlined, in the colour of the text: other colours may be illegible with some
        // brandings.
        text: bubble.content.isRich ? "<style>a { color: " + bubble.tint + " }</style>"
                                      + bubble.content.text : bubble.content.text
        textFormat: bubble.content.isRich ? Text.RichText : Text.PlainText
        wrapMode: Text.Wrap
        color: bubble.tint
        font.pixelSize: Theme.footnote
        Accessible.ignored: true
        onLinkActivated: link => bubble.linkActivated(link)

        // Shows where a link leads before it is opened.
        Loader {
            anchors.fill: parent
            active: label.hoveredLink.length > 0
            sourceComponent: ToolTip {
                text: label.hoveredLink
                isWanted: true
            }
        }
    }
}
