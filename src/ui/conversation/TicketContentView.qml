// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A conversation: the message list, and the composer over the end of it.
FocusScope {
    id: view

    required property TicketScreenData ticket
    /// How much of the lower edge the on-screen keyboard covers.
    property real keyboardHeight

    /// The height at the lower edge of the content that the composer covers.
    readonly property real covered: composer.height + 2 * Metrics.Padding
    /// The height that the composer leaves for a notice.
    readonly property real noticeHeight: stateView.height - covered + Metrics.Padding

    /// After a failure, pulling the view down by this distance loads the conversation again.
    readonly property int refreshDistance: 70

    readonly property var bubbling: ({scale: 0.9, removalScale: 0.9})

    signal attachmentOpened(url imageUrl, var attachments)

    LoadingStateView {
        id: stateView

        anchors.fill: parent
        anchors.bottomMargin: view.keyboardHeight
        loadingState: view.ticket.state
        transitions: ({
            "loading": {immediate: true},
            "loadingWithPreview": {immediate: true},
            "empty": view.bubbling,
            "error": view.bubbling
        })
        content: TicketMessageList {
            id: list

            model: view.ticket.messages
            isAITyping: view.ticket.isAITyping
            ticketState: view.ticket.ticketState
            onAttachmentOpened: (imageUrl, attachments) => view.attachmentOpened(imageUrl, attachments)
            bottomContentMargin: view.covered

            Connections {
                target: Keyboard

                function onAppeared() {
                    list.keyboardShown()
                }
            }
        }
        loading: TicketMessagesSkeletonView { }
        loadingWithPreview: TicketMessagesSkeletonView { preview: view.ticket.preview }
        empty: TicketEmptyContentView { visibleHeight: view.noticeHeight }
        error: Flickable {
            contentHeight: Math.max(height, notice.implicitHeight)
            // Also if all of it is visible.
            flickableDirection: Flickable.VerticalFlick
            boundsBehavior: Flickable.DragOverBounds
            // Released after a complete pull.
            onDraggingChanged: {
                if (!dragging && contentY < -view.refreshDistance)
                    view.ticket.appear()
            }

            WheelPullToRefresh {
                isAtTop: true
                onPulled: view.ticket.appear()
            }

            TicketErrorContentView {
                id: notice

                width: parent.width
                height: parent.height
                visibleHeight: view.noticeHeight
                errorText: view.ticket.errorText
                onActionRequested: view.ticket.appear()
            }
        }
    }

    /// Inserts a text that was typed anywhere in the conversation into the draft.
    function type(text: string) {
        composer.type(text)
    }

    // The background of the composer, up to the edges of the window.
    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: parent.height - composer.y
        color: Theme.chatBackgroundColor

        Rectangle {
            anchors.bottom: parent.top
            width: parent.width
            height: Metrics.Padding
            gradient: Gradient {
                GradientStop { position: 0; color: Qt.alpha(Theme.chatBackgroundColor, 0) }
                GradientStop { position: 1; color: Theme.chatBackgroundColor }
            }
        }
    }

    TicketComposer {
        id: composer

        x: Theme.columnInset(parent.width, Metrics.Padding)
        width: parent.width - 2 * x
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Metrics.Padding + view.keyboardHeight
        maximumHeight: view.height - view.keyboardHeight - 2 * Metrics.Padding
        focus: true
        composer: view.ticket.composer
    }
}
