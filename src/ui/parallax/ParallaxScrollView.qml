// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A header in the background, and a sheet with rounded corners that scrolls over it.
//
//     ParallaxScrollView {
//         configuration: Parallax.configuration(Parallax.heights(200, 90), Parallax.heights(120, 50),
//                                               0.5, 1, 0.3, "navy", "white")
//         header: HomeHeader { }
//         content: EmptyState { }                     // one item, alone or above the rows
//         model: tickets; delegate: TicketRow { }     // rows
//     }
//
// The sheet is a ListView, which creates rows when they become visible. The header item of the
// ListView consists of a transparent spacer, through which the header of this view shows, and the
// content below it. ParallaxSheet draws the background with the rounded corners.
//
// The header of this view is drawn behind the sheet, but its parent is the list. It receives events
// through the spacer, such as a press on one of its buttons. A drag or a turn of the wheel over it
// moves the sheet.
Item {
    id: view

    /// See Parallax.configuration().
    required property var configuration
    property bool isLandscape: height > 0 && width > height

    /// Resized to the width of the view and the height that ParallaxRules computes.
    property Component header
    /// Resized to the width of the view and its own implicit height; without rows, to at least
    /// `minimumHeight`, so that it fills the sheet.
    property Component content
    readonly property real minimumHeight: Math.max(0, rules.sheetHeight - bottomContentMargin)

    property alias model: list.model
    property alias delegate: list.delegate
    property alias section: list.section
    property alias spacing: list.spacing
    property alias reuseItems: list.reuseItems
    /// False makes rendering cheaper, but the content must not extend into the sheet's corners.
    property bool clipsCorners: true
    /// The accessible name of the list, for screen readers.
    property string listName
    /// The space below the last row or the content.
    property real bottomContentMargin

    /// ParallaxScroll.Opened or Collapsed.
    readonly property alias scrollState: rules.state
    /// 0 at rest, negative as the sheet moves up, positive as it is pulled down.
    readonly property alias offset: rules.offset
    readonly property alias headerItem: header.item
    readonly property alias contentItem: content.item
    /// Gives access to the other properties of the list, such as its position and its count.
    readonly property alias list: list

    onMinimumHeightChanged: list.updateHeights()

    ParallaxScroll {
        id: rules

        configuration: view.configuration
        viewHeight: view.height
        isLandscape: view.isLandscape
        onLayoutChanged: list.updateHeights()
    }

    Rectangle {
        anchors.fill: parent
        color: rules.headerBackground
    }

    // Behind the lower corners of the sheet.
    Rectangle {
        y: Math.min(rules.contentTop + Parallax.contentCornerRadius, view.height)
        width: view.width
        height: view.height - y
        color: rules.contentBackground
    }

    ListView {
        id: list

        property bool isUpdatingHeights

        function updateOffset() {
            if (!isUpdatingHeights)
                rules.setScrollOffset(originY - contentY)
        }

        // Sets the heights of all items above the rows. Bindings would loop: the list applies the
        // changes of its model while its header is resized.
        //
        // If an item above the rows is visible, the distance from the top stays the same; otherwise
        // the rows stay in place.
        function updateHeights() {
            if (!headerItem || isUpdatingHeights)
                return
            const offset = rules.offset
            const isHeaderVisible = -offset <= headerItem.height
            isUpdatingHeights = true
            content.height = content.preferredHeight()
            headerItem.height = rules.spacerHeight + content.height
            if (isHeaderVisible)
                contentY = originY - offset
            isUpdatingHeights = false
            updateOffset()
            boundsTimer.start()
        }

        y: rules.collapsedHeight
        width: view.width
        height: rules.sheetHeight
        // Lets even a few rows scroll over the header.
        bottomMargin: Math.max(view.bottomContentMargin, height + rules.spacerHeight - contentHeight)
        boundsBehavior: Flickable.DragAndOvershootBounds
        currentIndex: -1
        header: Item { }
        Accessible.role: Accessible.List
        Accessible.name: view.listName

        onContentYChanged: updateOffset()
        onCountChanged: updateHeights()
        onHeaderItemChanged: updateHeights()
        // The rows are clipped with the sheet, the header is not.
        Component.onCompleted: contentItem.parent = sheet
    }

    // Runs after all heights have been set: the position may be out of the new bounds.
    Timer {
        id: boundsTimer

        interval: 0
        onTriggered: {
            if (!list.moving)
                list.returnToBounds()
        }
    }

    Loader {
        id: header

        parent: list
        y: -list.y
        width: list.width
        height: rules.headerHeight
        sourceComponent: view.header
    }

    ParallaxSheet {
        id: sheet

        parent: list
        z: 1
        anchors.fill: parent
        background: rules.contentBackground
        clipsCorners: view.clipsCorners
        contentTop: rules.contentTop - rules.collapsedHeight
    }

    Loader {
        id: content

        function preferredHeight() {
            if (!item)
                return 0
            return list.count > 0 ? implicitHeight : Math.max(implicitHeight, view.minimumHeight)
        }

        parent: list.headerItem
        y: rules.spacerHeight
        width: list.width
        height: 0
        sourceComponent: view.content

        onItemChanged: list.updateHeights()
        onImplicitHeightChanged: list.updateHeights()
    }
}
