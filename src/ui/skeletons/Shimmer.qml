// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A highlight that moves over its parent from one side to the other, in an endless loop. It is
// cheap, because only the position of one item changes.
Item {
    id: shimmer

    readonly property real startX: LayoutMirroring.enabled ? width : -width

    anchors.fill: parent
    clip: true

    Rectangle {
        // The same white would be too bright on a dark background.
        opacity: Theme.isDark ? 0.4 : 1
        width: shimmer.width
        height: shimmer.height
        gradient: Gradient {
            orientation: Gradient.Horizontal

            GradientStop { position: 0; color: "transparent" }
            GradientStop { position: 0.45; color: "#4dffffff" }
            GradientStop { position: 0.55; color: "#4dffffff" }
            GradientStop { position: 1; color: "transparent" }
        }

        XAnimator on x {
            from: shimmer.startX
            to: -shimmer.startX
            duration: 1500
            loops: Animation.Infinite
            running: shimmer.visible && shimmer.width > 0
        }
    }
}
