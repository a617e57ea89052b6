// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The list of a conversation: its messages, a row while the AI is typing, and a row if the ticket
// is closed. The list scrolls to its end when it appears and whenever its last rows change.
Item {
    id: list

    /// A MessageListModel.
    required property var model
    /// The state of the ticket.
    required property string ticketState
    required property bool isAITyping
    /// The height of the items that cover the end of the list.
    property real bottomContentMargin
    readonly property bool isClosed: ticketState === "closed"
    readonly property alias rows: rows
    readonly property alias flickable: flickable

    signal attachmentOpened(url imageUrl, var attachments)

    /// To be called when the on-screen keyboard has appeared.
    function keyboardShown() {
        scrollToEnd(200)
    }

    // The duration of a scroll to the end that waits for the end of a drag; -1 if none is waiting.
    property int pendingScrollDuration: -1

    function scrollToEnd(duration) {
        if (flickable.dragging)
            pendingScrollDuration = duration
        else
            rows.scrollToEnd(duration)
    }

    // Scrolls the item with the focus into view.
    readonly property Item focusItem: Window.activeFocusItem

    onFocusItemChanged: {
        for (let item = focusItem; item && item !== list; item = item.parent) {
            if (item === rows)
                scrollIntoView(focusItem)
        }
    }

    function scrollIntoView(item) {
        const top = item.mapToItem(list, 0, 0).y - Metrics.Padding
        const bottom = top + item.height + 2 * Metrics.Padding - (height - bottomContentMargin)
        if (top < 0)
            rows.scrollBy(top, Metrics.ShortDuration)
        else if (bottom > 0)
            rows.scrollBy(bottom, Metrics.ShortDuration)
    }

    onTicketStateChanged: scrollToEnd(Metrics.TransitionDuration)
    onIsAITypingChanged: scrollToEnd(Metrics.TransitionDuration)

    TabFocus {
        item: list
        onEntered: rows.showCurrentRow()
    }

    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: Strings.string("ticket_list_your_messages")
    Accessible.focusable: true
    Keys.onPressed: event => {
        const page = 0.9 * (height - bottomContentMargin)
        event.accepted = true
        if (event.key === Qt.Key_Up)
            rows.step(-1)
        else if (event.key === Qt.Key_Down)
            rows.step(1)
        else if (event.key === Qt.Key_PageUp)
            rows.scrollBy(-page, Metrics.ShortDuration)
        else if (event.key === Qt.Key_PageDown)
            rows.scrollBy(page, Metrics.ShortDuration)
        else if (event.key === Qt.Key_Home)
            rows.scrollToStart(Metrics.TransitionDuration)
        else if (event.key === Qt.Key_End)
            rows.scrollToEnd(Metrics.TransitionDuration)
        else if (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
            (rows.currentItem as MessageItem)?.activate()
        else if (event.matches(StandardKey.Copy) && !textSelection.isEmpty)
            textSelection.copy()
        else if (event.matches(StandardKey.Copy))
            list.model.copy(rows.currentIndex)
        else if (Keyboard.opensMenu(event.key, event.modifiers))
            (rows.currentItem as MessageItem)?.openMenu()
        else
            event.accepted = false
    }

    // Cheap, because only the visible rows read their ages.
    Timer {
        interval: 60000
        repeat: true
        triggeredOnStart: true
        running: list.visible && list.Window.visibility !== Window.Hidden
                 && list.Window.visibility !== Window.Minimized
        onTriggered: list.model.refreshAges()
    }

    Connections {
        target: list.model

        function onMessagesChanged() {
            list.scrollToEnd(Metrics.TransitionDuration)
        }
        function onMessageArrived(description) {
            if (!rows.announce(description))
                alert.show(description)
        }
    }

    // Screen readers read an alert when it appears. It draws nothing.
    Item {
        id: alert

        property string text

        function show(message: string) {
            text = ""
            text = message
        }

        width: list.width
        height: 1
        visible: text.length > 0
        Accessible.role: Accessible.AlertMessage
        Accessible.name: text

        Timer {
            interval: 5000
            running: alert.visible
            onTriggered: alert.text = ""
        }
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        clip: true
        flickableDirection: Flickable.VerticalFlick
        // The rows are not part of the content: AnchoredList computes where they begin and end.
        contentHeight: 0
        topMargin: -rows.start
        bottomMargin: rows.end + height
        onContentYChanged: rows.contentY = contentY
        onDraggingChanged: {
            if (dragging)
                Keyboard.hide()
            if (dragging || list.pendingScrollDuration < 0)
                return
            rows.scrollToEnd(list.pendingScrollDuration)
            list.pendingScrollDuration = -1
        }

        AnchoredList {
            id: rows

            parent: flickable
            x: (flickable.width - width) / 2
            width: Math.min(flickable.width, Theme.columnWidth)
            height: flickable.height
            topMargin: Metrics.Spacing
            bottomMargin: list.bottomContentMargin
            model: list.model
            kindRole: "kind"
            costRole: "cost"
            isMoving: flickable.moving
            onScrollRequested: contentY => flickable.contentY = contentY
            trailing: (list.isAITyping ? [typing] : []).concat(list.isClosed ? [closed] : [])

            delegate: MessageItem {
                id: message

                onAttachmentOpened: imageUrl => list.attachmentOpened(imageUrl, message.attachments)
                onTextHovered: (text, isHovered) => textSelection.hover(text, isHovered)
                onMenuRequested: position => menus.openTextMenu(message, position)
                onPictureMenuRequested: (cell, position) => menus.openPictureMenu(cell, position)
                gap: Metrics.MessageSpacing
                showsFocus: isCurrent && list.activeFocus
                onLinkActivated: link => Qt.openUrlExternally(link)
                onPressed: {
                    rows.currentIndex = rows.indexOf(message)
                    list.forceActiveFocus(Qt.MouseFocusReason)
                }
            }
        }
    }

    TextSelection {
        id: textSelection

        // The list handles the keys for copying.
        onStarted: list.forceActiveFocus(Qt.MouseFocusReason)
    }

    MessageMenus {
        id: menus

        anchors.fill: parent
        anchors.bottomMargin: list.bottomContentMargin
        selection: textSelection
        onLinkOpened: link => Qt.openUrlExternally(link)
        onMessageCopied: item => list.model.copy(rows.indexOf(item))
    }

    ScrollIndicator {
        readonly property real contentHeight: rows.end - rows.start + flickable.height

        flickable: flickable
        orientation: Qt.Vertical
        isScrollBar: true
        room: list.height - list.bottomContentMargin
        ratio: flickable.height / contentHeight
        position: (flickable.contentY - rows.start) / contentHeight
    }

    NewestButton {
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.rightMargin: Metrics.Padding
        anchors.bottomMargin: list.bottomContentMargin
        isWanted: rows.end - flickable.contentY > list.height / 2
        onClicked: list.scrollToEnd(Metrics.TransitionDuration)
    }

    Component {
        id: typing

        AITypingMessage { }
    }

    Component {
        id: closed

        TicketClosedRow { }
    }
}
