// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane

// One message: its pictures, its text in a bubble beside the sender's avatar, and from when and
// whom it is. A row of a long one has a part of the text only.
Item {
    id: item

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

        y: item.topInset
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 16
        active: item.attachments.length > 0
        sourceComponent: AttachmentsGrid {
            attachments: item.attachments
            messageData: item.messageData
            isCustomer: item.isCustomer
            onPressed: item.pressed()
        }
    }

    MessageAvatar {
        anchors.left: parent.left
        anchors.leftMargin: 16
        y: item.bubbleBottom - height
        kind: item.isLast ? item.avatar : "none"
        picture: item.picture
    }

    MessageBubble {
        id: bubble

        y: item.bubbleTop
        anchors.left: item.isCustomer ? undefined : parent.left
        anchors.leftMargin: 16 + (item.avatar === "none" ? 0 : item.inset)
        anchors.right: item.isCustomer ? parent.right : undefined
        anchors.rightMargin: 16
        maximumWidth: Math.min(item.width - 32 - item.inset, 600)
        isCustomer: item.isCustomer
        isFirst: item.isFirst
        isLast: item.isLast
        content: item.content
        onLinkActivated: link => item.linkActivated(link)
        onPressed: item.pressed()

        FocusRing {
            radius: 18
            tint: Theme.fontBasicColor
            isShown: item.showsFocus
        }
    }

    MessageCaption {
        id: caption

        y: item.bubbleBottom + 10
        anchors.left: item.isCustomer ? undefined : parent.left
        anchors.right: item.isCustomer ? parent.right : undefined
        anchors.leftMargin: 16 + item.inset
        anchors.rightMargin: 16
        width: Math.min(implicitWidth, item.width - 32 - item.inset)
        visible: item.isLast
        text: item.caption
    }
}
