// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Window
import Tolvane.Private

// The home screen: branded header, the customer's conversations, and the button for a new one.
FocusScope {
    id: home

    required property ScreenData screen
    /// False while a page covers it.
    property bool isOnTop: true

    property bool hasInitiallyLoaded: false

    readonly property int headerHeight:
        parallax.isLandscape ? Metrics.LandscapeHeaderHeight : Metrics.HeaderHeight
    /// The height between the opened header and the button for a new ticket.
    readonly property real noticeHeight: newTicket.y - headerHeight + 2 * Metrics.FloatingMargin

    /// Pulling the sheet down by this distance loads the list again.
    readonly property int refreshDistance: 70

    // Returning to this view refreshes the list. (ScreenData starts the first load.)
    onIsOnTopChanged: {
        if (isOnTop)
            appear()
    }

    RowsTransition {
        id: rows

        hasRows: home.screen.state === "loaded"
        contentHeight: parallax.contentItem?.implicitHeight ?? 0
        headerHeight: parallax.list.headerItem?.height ?? 0
        scrolledDistance: -parallax.offset
    }

    Component.onCompleted: {
        rows.start()
        parallax.list.focus = true
        parallax.list.activeFocusOnTab = true
        appear()
    }

    function appear() {
        if (hasInitiallyLoaded)
            screen.reload()
        hasInitiallyLoaded = true
    }

    Keys.onPressed: event => {
        const list = parallax.list
        const page = 0.9 * (list.height - newTicket.height)
        event.accepted = true
        if (event.matches(StandardKey.Refresh))
            screen.load()
        else if (event.key === Qt.Key_PageUp)
            scrollTo(list.contentY - page)
        else if (event.key === Qt.Key_PageDown)
            scrollTo(list.contentY + page)
        else if (event.key === Qt.Key_Home)
            scrollTo(-Infinity)
        else if (event.key === Qt.Key_End)
            scrollTo(Infinity)
        else
            event.accepted = false
    }

    function scrollTo(y: real) {
        const list = parallax.list
        const last = list.originY + list.contentHeight + list.bottomMargin - list.height
        scrolling.to = Math.max(list.originY, Math.min(y, last))
        scrolling.restart()
    }

    NumberAnimation {
        id: scrolling

        target: parallax.list
        property: "contentY"
        duration: Metrics.ShortDuration
        easing.type: Easing.OutQuad
    }

    // Updates the ages of the messages while they are visible.
    Timer {
        interval: 60000
        repeat: true
        running: home.visible && home.Window.visibility !== Window.Hidden
                 && home.Window.visibility !== Window.Minimized
        triggeredOnStart: true
        onTriggered: home.screen.updateAges()
    }

    // Tab shows the focus ring on a visible row.
    TabFocus {
        item: parallax.list
        onEntered: {
            const list = parallax.list
            if (list.currentIndex < 0)
                list.currentIndex = Math.max(0, list.indexAt(list.width / 2, list.contentY))
            else
                list.positionViewAtIndex(list.currentIndex, ListView.Contain)
        }
    }

    Connections {
        target: parallax.list

        // No row is current until the arrow keys are used.
        function onModelChanged() {
            if (parallax.list.currentItem)
                parallax.list.currentItem.focus = false
            parallax.list.currentIndex = -1
        }

        // Released after a complete pull.
        function onDraggingChanged() {
            if (!parallax.list.dragging && parallax.offset > home.refreshDistance)
                home.screen.load()
        }
    }

    ReadingOrder {
        content: parallax.list.contentItem
    }

    WheelPullToRefresh {
        parent: parallax.list
        isAtTop: parallax.list.atYBeginning
        onPulled: home.screen.load()
    }

    // Not in the header, which belongs to the list: with a further tab stop in it, the list itself would
    // not be a tab stop.
    IconButton {
        z: 1
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Metrics.Padding
        visible: !home.screen.isEmbedded
        icon: "close"
        color: Theme.accentColor
        focusRing.ground: Theme.primaryColor
        name: Strings.string("accessibility_close")
        shortcut: "Esc"
        onClicked: home.screen.close()
    }

    ParallaxScrollView {
        id: parallax

        anchors.fill: parent
        configuration: Parallax.configuration(
                           Parallax.heights(Metrics.HeaderHeight, Metrics.CollapsedHeaderHeight),
                           Parallax.heights(Metrics.LandscapeHeaderHeight,
                                            Metrics.LandscapeCollapsedHeaderHeight),
                           0.5, 1.5, 0.3, Theme.primaryColor, Theme.chatBackgroundColor)
        // Only in low windows, such as a phone in landscape. Large windows have room for the tall
        // header.
        isLandscape: height > 0 && width > height && height < 500
        bottomContentMargin: 120
        reuseItems: true
        clipsCorners: false
        listName: Strings.string("ticket_list_your_messages")
        model: rows.showsRows ? home.screen.tickets : null

        header: TolvaneHeader {
            isCollapsed: parallax.scrollState === ParallaxScroll.Collapsed
            isLandscape: parallax.isLandscape
            pullProgress: parallax.offset / home.refreshDistance
        }

        content: Item {
            implicitHeight: stateView.implicitHeight + Metrics.SmallPadding

            LoadingStateView {
                id: stateView

                x: Theme.columnInset(parent.width, Metrics.Padding)
                y: Metrics.SmallPadding
                width: parent.width - 2 * x
                height: parent.height - Metrics.SmallPadding
                loadingState: home.screen.state
                loading: TolvaneListSkeletonView { }
                // The others by URL: their types are loaded when they are shown.
                content: Item {
                    implicitHeight: stale.implicitHeight

                    Loader {
                        id: stale

                        width: parent.width
                        active: home.screen.isStale
                        Component.onCompleted: setSource(Qt.resolvedUrl("../notices/RetryLine.qml"), {
                            text: Strings.string("ticket_list_stale")
                        })
                    }
                    Connections {
                        target: stale.item
                        ignoreUnknownSignals: true

                        function onRetryRequested() {
                            home.screen.load()
                        }
                    }
                }
                empty: Loader {
                    Component.onCompleted: setSource(Qt.resolvedUrl("TolvaneEmptyContentView.qml"), {
                        visibleHeight: Qt.binding(() => home.noticeHeight)
                    })
                }
                error: Loader {
                    id: failure

                    Component.onCompleted: setSource(Qt.resolvedUrl("TolvaneErrorContentView.qml"), {
                        visibleHeight: Qt.binding(() => home.noticeHeight),
                        errorText: Qt.binding(() => home.screen.errorText),
                        action: Strings.string("error_retry")
                    })

                    Connections {
                        target: failure.item
                        ignoreUnknownSignals: true

                        function onActionRequested() {
                            home.screen.load()
                        }
                    }
                }
                transitions: ({
                    "loaded": {scale: 0.9},
                    "loading": {scale: 0.9, removalScale: 0.9},
                    "empty": {scale: 0.95},
                    "error": {scale: 0.95}
                })
            }
        }

        section.property: "section"
        section.delegate: TicketListHeader {
            width: parallax.width
            opacity: rows.progress
            transform: Translate { y: -rows.displacement }
        }
        section.labelPositioning: ViewSection.InlineLabels | ViewSection.CurrentLabelAtStart

        delegate: TicketItem {
            width: parallax.width
            opacity: rows.progress
            scale: rows.hasRows ? 0.9 + 0.1 * rows.progress : 1
            enabled: rows.hasRows
            transform: Translate { y: -rows.displacement }
            isCurrent: ListView.isCurrentItem && ListView.view.activeFocus
            onClicked: home.screen.navigation.navigate(Destination.ticket(preview))
        }
    }

    ScrollIndicator {
        flickable: parallax.list
        orientation: Qt.Vertical
        isScrollBar: true
    }

    NewTicketArea {
        id: newTicket

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Metrics.FloatingMargin
        bottomInset: Metrics.FloatingMargin
        isPresent: !home.screen.isLoading
        hasDraft: home.screen.hasNewTicketDraft
        onClicked: home.screen.navigation.navigate(Destination.newTicket())
    }
}
