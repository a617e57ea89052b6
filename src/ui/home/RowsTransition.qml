// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Animates the rows of the list: they fade in and grow when the list is loaded, and fade out at their
// positions when another view replaces it.
QtObject {
    id: transition

    required property bool hasRows
    /// The height of the content above the rows, and of the list's header item, which contains it.
    required property real contentHeight
    required property real headerHeight
    /// The distance by which the list is scrolled from rest.
    required property real scrolledDistance

    /// 0 without rows, 1 with rows.
    property real progress: 0
    /// True also while the rows fade out.
    property bool showsRows: false

    property real contentHeightWithRows: 0
    /// How far a taller view above them has moved the rows that fade out.
    readonly property real displacement: {
        if (hasRows || !showsRows)
            return 0
        const growth = contentHeight - contentHeightWithRows
        return scrolledDistance <= headerHeight - growth ? growth : 0
    }

    onHasRowsChanged: start()
    onContentHeightChanged: {
        if (hasRows)
            contentHeightWithRows = contentHeight
    }

    function start() {
        showsRows = showsRows || hasRows
        animation.to = hasRows ? 1 : 0
        animation.restart()
    }

    readonly property NumberAnimation animation: NumberAnimation {
        target: transition
        property: "progress"
        duration: Metrics.TransitionDuration
        easing.type: Easing.InOutQuad
        onFinished: transition.showsRows = transition.hasRows
    }
}
