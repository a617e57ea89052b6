// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A row of the list: a message with its pictures, its text in a bubble beside the sender's avatar,
// and a caption with its age and sender. A row of a long message has only a part of the text.
Item {
    id: message

    required property bool isCustomer
    /// An Avatar.Kind.
    required property int avatar
    required property url picture
    required property formattedText content
    required property string caption
    required property string timestamp
    /// URLs.
    required property list<string> attachments
    required property string description
    required property bool isFirst
    required property bool isLast

    property bool isCurrent: false
    property bool showsFocus: false
    /// The distance to the next row.
    property real gap
    readonly property alias bubble: bubble

    signal attachmentOpened(url imageUrl)
    signal pictureMenuRequested(AttachmentThumbnail cell, point position)
    signal linkActivated(string link)
    signal menuRequested(point position)
    signal textHovered(Text text, bool isHovered)
    signal pressed()

    function activate() {
        if (attachments.length > 0)
            (grid.item as AttachmentsGrid).open(0)
        else if (content.links.length === 1)
            linkActivated(content.links[0])
        else if (content.links.length > 1)
            openMenu()
    }

    /// Opens the context menu of the whole text: at its corner, where no link is.
    function openMenu() {
        menuRequested(Qt.point(0, bubble.height))
    }

    readonly property real topInset: isFirst ? Metrics.Spacing : 0
    /// Leaves room for the avatar, and the same margin on the other side.
    readonly property real contentWidth: width - 2 * Metrics.Padding - Metrics.AvatarInset
    /// False for pictures without a text, which have the avatar beside them.
    readonly property bool hasBubble: attachments.length === 0 || content.text.trim().length > 0
    readonly property real avatarInset: avatar === Avatar.None ? 0 : Metrics.AvatarInset
    readonly property real bubbleTop: topInset + (grid.item ? grid.height + Metrics.Spacing : 0)
    readonly property real bubbleBottom: hasBubble ? bubbleTop + bubble.height
                                                   : topInset + grid.height

    implicitHeight: isLast ? caption.y + caption.height + Metrics.Spacing + gap : bubbleBottom
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.description: Array.from(content.links).join(", ")
    Accessible.focusable: true
    Accessible.focused: showsFocus
    Accessible.ignored: !isFirst
    Accessible.onPressAction: activate()

    Loader {
        id: grid

        y: message.topInset
        anchors.left: message.isCustomer ? undefined : parent.left
        anchors.leftMargin: Metrics.Padding + (message.hasBubble ? 0 : message.avatarInset)
        anchors.right: message.isCustomer ? parent.right : undefined
        anchors.rightMargin: Metrics.Padding
        sourceComponent: message.attachments.length > 0 ? pictures : null
    }

    Component {
        id: pictures

        AttachmentsGrid {
            attachments: message.attachments
            isCustomer: message.isCustomer
            onOpened: imageUrl => message.attachmentOpened(imageUrl)
            onMenuRequested: (cell, position) => message.pictureMenuRequested(cell, position)
            onPressed: message.pressed()
        }
    }

    MessageAvatar {
        anchors.left: parent.left
        anchors.leftMargin: Metrics.Padding
        y: message.bubbleBottom - height
        kind: message.isLast ? message.avatar : Avatar.None
        picture: message.picture
    }

    MessageBubble {
        id: bubble

        y: message.bubbleTop
        anchors.left: message.isCustomer ? undefined : parent.left
        anchors.leftMargin: Metrics.Padding + message.avatarInset
        anchors.right: message.isCustomer ? parent.right : undefined
        anchors.rightMargin: Metrics.Padding
        maximumWidth: Math.min(message.contentWidth, 600)
        isCustomer: message.isCustomer
        isFirst: message.isFirst
        isLast: message.isLast
        content: message.content
        onLinkActivated: link => message.linkActivated(link)
        onMenuRequested: position => message.menuRequested(position)
        onHovered: (text, isHovered) => message.textHovered(text, isHovered)
        visible: message.hasBubble
        onPressed: message.pressed()
    }

    FocusRing {
        anchors.fill: message.hasBubble ? bubble : grid
        anchors.margins: -4
        tint: Theme.fontBasicColor
        isShown: message.showsFocus
    }

    MessageCaption {
        id: caption

        y: message.bubbleBottom + Metrics.Spacing
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Metrics.Padding + Metrics.AvatarInset
        anchors.rightMargin: Metrics.Padding
        horizontalAlignment: message.isCustomer ? Text.AlignRight : Text.AlignLeft
        visible: message.isLast
        text: message.caption
        timestamp: message.timestamp
    }
}
