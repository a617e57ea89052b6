// SPDX-License-Identifier: MIT
pragma ComponentBehavior: Bound
import QtQuick
import Tolvane.Private

// Dots that move in a wave. The size of the item does not change.
Item {
    id: view

    property real time: dots.now()

    implicitWidth: dots.dotCount * (dots.dotSize + dots.spacing) - dots.spacing
    implicitHeight: dots.height
    Accessible.ignored: true

    TypingDots {
        id: dots
    }

    Repeater {
        model: dots.dotCount

        Rectangle {
            required property int index

            x: index * (dots.dotSize + dots.spacing)
            y: (view.height - height) / 2 + dots.offset(index, view.time)
            width: dots.dotSize
            height: dots.dotSize
            radius: dots.dotSize / 2
            antialiasing: true
            color: Theme.fontAgentBubbleColor
            scale: dots.scale(index, view.time)
            opacity: dots.opacity(index, view.time)
        }
    }

    // Triggers an update per frame. The time itself comes from the clock.
    NumberAnimation {
        id: ticks

        property real tick

        target: ticks
        property: "tick"
        from: 0
        to: 1
        duration: 1000
        loops: Animation.Infinite
        running: view.visible
        onTickChanged: view.time = dots.now()
    }
}
