// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// One message: its pictures, its text in a bubble beside the sender's avatar, and a caption with
// its age and sender. A row of a long message has a part of the text only.
Item {
    id: message

    required property bool isCustomer
    /// "picture", "person", "ai" or "none"
    required property string avatar
    required property url picture
    /// A FormattedText.
    required property var content
    required property string caption
    required property var attachments
    required property string description
    required property bool isFirst
    required property bool isLast

    property bool isCurrent: false
    property bool showsFocus: false
    /// The distance to the next row.
    property real gap
    readonly property alias bubble: bubble

    signal attachmentOpened(url imageUrl)
    signal linkActivated(string link)
    signal pressed()

    function activate() {
        if (attachments.length > 0)
            grid.item.open(0)
        else if (content.link)
            linkActivated(content.link)
    }

    // The width that all rows leave for the avatar, and on the other side as well.
    readonly property real inset: 42
    readonly property real topInset: isFirst ? 10 : 0
    readonly property real bubbleTop: topInset + (grid.item ? grid.height + 10 : 0)
    readonly property real bubbleBottom: bubbleTop + bubble.height

    implicitHeight: isLast ? caption.y + caption.height + 10 + gap : bubbleBottom
    Accessible.role: Accessible.ListItem
    Accessible.name: description
    Accessible.focusable: true
    Accessible.focused: showsFocus
    Accessible.ignored: !isFirst
    Accessible.onPressAction: activate()

    Loader {
        id: grid

        y: message.topInset
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 16
        sourceComponent: message.attachments.length > 0 ? pictures : null
    }

    Component {
        id: pictures

        AttachmentsGrid {
            attachments: message.attachments
            isCustomer: message.isCustomer
            onOpened: imageUrl => message.attachmentOpened(imageUrl)
            onPressed: message.pressed()
        }
    }

    MessageAvatar {
        anchors.left: parent.left
        anchors.leftMargin: 16
        y: message.bubbleBottom - height
        kind: message.isLast ? message.avatar : "none"
        picture: message.picture
    }

    MessageBubble {
        id: bubble

        y: message.bubbleTop
        anchors.left: message.isCustomer ? undefined : parent.left
        anchors.leftMargin: 16 + (message.avatar === "none" ? 0 : message.inset)
        anchors.right: message.isCustomer ? parent.right : undefined
        anchors.rightMargin: 16
        maximumWidth: Math.min(message.width - 32 - message.inset, 600)
        isCustomer: message.isCustomer
        isFirst: message.isFirst
        isLast: message.isLast
        content: message.content
        onLinkActivated: link => message.linkActivated(link)
        onPressed: message.pressed()

        FocusRing {
            anchors.margins: -4
            tint: Theme.fontBasicColor
            isShown: message.showsFocus
        }
    }

    MessageCaption {
        id: caption

        y: message.bubbleBottom + 10
        anchors.left: message.isCustomer ? undefined : parent.left
        anchors.right: message.isCustomer ? parent.right : undefined
        anchors.leftMargin: 16 + message.inset
        anchors.rightMargin: 16
        width: Math.min(implicitWidth, message.width - 32 - message.inset)
        visible: message.isLast
        text: message.caption
    }
}
