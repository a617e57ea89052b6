// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// One message: its pictures, its text in a bubble beside the sender's avatar, and from when and
// whom it is. A row of a long one has a part of the text only.
Item {
    // Not "item": in what a Loader loads, that is the Loader's own.
    id: messageItem

    required property bool isCustomer
    /// "picture", "person", "ai" or "none"
    required property string avatar
    required property url picture
    /// A StyledText.
    required property var content
    required property string caption
    required property var attachments
    required property string description
    required property bool isFirst
    required property bool isLast
    required property MessageData messageData

    property bool isCurrent: false
    property bool showsFocus: false
    /// To what comes below.
    property real gap
    readonly property alias bubble: bubble

    signal linkActivated(string link)
    signal pressed()

    function activate() {
        if (attachments.length > 0)
            grid.item.open(0)
        else if (content.link)
            linkActivated(content.link)
    }

    // All rows leave this much beside the avatars, and on the other side as well.
    readonly property real inset: 42
    readonly property real topInset: isFirst ? 10 : 0
    readonly property real bubbleTop: topInset + (grid.active ? grid.height + 10 : 0)
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

        y: messageItem.topInset
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 16
        active: messageItem.attachments.length > 0
        sourceComponent: AttachmentsGrid {
            attachments: messageItem.attachments
            messageData: messageItem.messageData
            isCustomer: messageItem.isCustomer
            onPressed: messageItem.pressed()
        }
    }

    MessageAvatar {
        anchors.left: parent.left
        anchors.leftMargin: 16
        y: messageItem.bubbleBottom - height
        kind: messageItem.isLast ? messageItem.avatar : "none"
        picture: messageItem.picture
    }

    MessageBubble {
        id: bubble

        y: messageItem.bubbleTop
        anchors.left: messageItem.isCustomer ? undefined : parent.left
        anchors.leftMargin: 16 + (messageItem.avatar === "none" ? 0 : messageItem.inset)
        anchors.right: messageItem.isCustomer ? parent.right : undefined
        anchors.rightMargin: 16
        maximumWidth: Math.min(messageItem.width - 32 - messageItem.inset, 600)
        isCustomer: messageItem.isCustomer
        isFirst: messageItem.isFirst
        isLast: messageItem.isLast
        content: messageItem.content
        onLinkActivated: link => messageItem.linkActivated(link)
        onPressed: messageItem.pressed()

        FocusRing {
            radius: 18
            tint: Theme.fontBasicColor
            isShown: messageItem.showsFocus
        }
    }

    MessageCaption {
        id: caption

        y: messageItem.bubbleBottom + 10
        anchors.left: messageItem.isCustomer ? undefined : parent.left
        anchors.right: messageItem.isCustomer ? parent.right : undefined
        anchors.leftMargin: 16 + messageItem.inset
        anchors.rightMargin: 16
        width: Math.min(implicitWidth, messageItem.width - 32 - messageItem.inset)
        visible: messageItem.isLast
        text: messageItem.caption
    }
}
