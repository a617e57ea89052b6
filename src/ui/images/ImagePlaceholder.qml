// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The default placeholder of an AsyncImage: a progress indicator, or a broken picture if the load
// has failed. A press on the broken picture loads it again.
Item {
    id: placeholder

    property color tint: Theme.primaryColor
    property real indicatorScale: 1
    property int brokenSize: Metrics.IconSize
    /// Whether a press loads the picture again. Items below receive the press, too.
    property bool retriesOnPress: true

    /// The AsyncImage.
    readonly property var image: parent
    readonly property bool hasFailed: image?.hasFailed ?? false

    implicitWidth: indicator.implicitWidth
    implicitHeight: indicator.implicitHeight

    ProgressIndicator {
        id: indicator

        anchors.centerIn: parent
        width: Math.min(implicitWidth, parent.width)
        height: Math.min(implicitHeight, parent.height)
        scale: placeholder.indicatorScale
        tint: placeholder.tint
        visible: !placeholder.hasFailed
    }

    Icon {
        anchors.centerIn: parent
        width: Math.min(placeholder.brokenSize, parent.width)
        height: width
        name: "photo-broken"
        color: placeholder.tint
        opacity: hover.hovered ? 0.7 : 1
        visible: placeholder.hasFailed
    }

    HoverHandler {
        id: hover

        enabled: placeholder.hasFailed && placeholder.retriesOnPress
        cursorShape: Qt.PointingHandCursor
    }

    TapHandler {
        enabled: placeholder.hasFailed && placeholder.retriesOnPress
        onTapped: placeholder.image.retry()
    }
}
