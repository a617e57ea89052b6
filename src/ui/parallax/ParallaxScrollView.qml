// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A header that stays behind, and a sheet with rounded corners that scrolls over it.
//
//     ParallaxScrollView {
//         configuration: Parallax.configuration(Parallax.heights(240, 80), Parallax.heights(160, 60),
//                                               0.5, 1, 0.3, "navy", "white")
//         header: HomeHeader { }
//         content: EmptyState { }                     // one item, alone or above the rows
//         model: tickets; delegate: TicketRow { }     // rows
//     }
//
// The sheet is a list: rows are made as they come into sight, however many the model has. The
// list's own header item is the clear room through which one sees the header of the view, with the
// content below. ParallaxSheet has the ground with the rounded corners.
//
// The header of the view is drawn behind the sheet, and for events it is a part of the list: what
// it wants itself, such as a press on a button, it gets through the clear room; a drag or a turn of
// the wheel upon it moves the sheet.
Item {
    id: view

    /// See Parallax.configuration().
    required property var configuration
    property bool isLandscape: height > 0 && width > height

    /// Takes the width of the view, and the height that the rules give it.
    property Component header
    /// Takes the width of the view and its own implicit height; without rows, it is at least as
    /// high as `minimumHeight`, so that it fills the sheet.
    property Component content
    readonly property real minimumHeight: Math.max(0, rules.sheetHeight - bottomContentMargin)

    property alias model: list.model
    property alias delegate: list.delegate
    property alias section: list.section
    property alias spacing: list.spacing
    property alias reuseItems: list.reuseItems
    /// False for content that stays clear of the sheet's corners by itself: drawing is cheaper then.
    property bool cutsCorners: true
    /// What the rows are, for those who hear it.
    property string listName
    /// Room below the last of it all.
    property real bottomContentMargin

    /// ParallaxScroll.Opened or Collapsed.
    readonly property alias scrollState: rules.state
    /// 0 at rest, negative as the sheet moves up, positive as it is pulled down.
    readonly property alias offset: rules.offset
    readonly property alias headerItem: header.item
    readonly property alias contentItem: content.item
    /// For what else there is to do with a list: its position, its count.
    readonly property alias list: list

    onMinimumHeightChanged: list.arrange()

    ParallaxScroll {
        id: rules

        configuration: view.configuration
        viewHeight: view.height
        isLandscape: view.isLandscape
        onLayoutChanged: list.arrange()
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

        property bool isArranging

        function measure() {
            if (!isArranging)
                rules.scroll(originY - contentY)
        }

        // Sets the heights of all that is above the rows. Bindings would go round in circles: the
        // list takes in the changes of its model while its header is resized.
        //
        // Who sees what is above the rows stays as far from the top as before; who is further down
        // keeps the rows in place.
        function arrange() {
            if (!headerItem || isArranging)
                return
            const offset = rules.offset
            const isSeen = -offset <= headerItem.height
            isArranging = true
            content.height = content.wantedHeight()
            headerItem.height = rules.spacerHeight + content.height
            if (isSeen)
                contentY = originY - offset
            isArranging = false
            measure()
            settling.start()
        }

        y: rules.collapsedHeight
        width: view.width
        height: rules.sheetHeight
        // Few rows can be scrolled over the header as well.
        bottomMargin: Math.max(view.bottomContentMargin, height + rules.spacerHeight - contentHeight)
        boundsBehavior: Flickable.DragAndOvershootBounds
        currentIndex: -1
        header: Item { }
        Accessible.role: Accessible.List
        Accessible.name: view.listName

        onContentYChanged: measure()
        onCountChanged: arrange()
        onHeaderItemChanged: arrange()
        // Cut with the sheet; the header is none of it.
        Component.onCompleted: contentItem.parent = sheet
    }

    // Once all heights are there: what fitted before may be out of bounds.
    Timer {
        id: settling

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
        cutsCorners: view.cutsCorners
        contentTop: rules.contentTop - rules.collapsedHeight
    }

    Loader {
        id: content

        function wantedHeight() {
            if (!item)
                return 0
            return list.count > 0 ? implicitHeight : Math.max(implicitHeight, view.minimumHeight)
        }

        parent: list.headerItem
        y: rules.spacerHeight
        width: list.width
        height: 0
        sourceComponent: view.content

        onItemChanged: list.arrange()
        onImplicitHeightChanged: list.arrange()
    }
}
