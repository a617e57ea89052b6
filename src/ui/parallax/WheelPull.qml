// SPDX-License-Identifier: MIT
import QtQuick

// What a pull is to a finger, with a wheel or a trackpad: turning on, upwards, at the top of a list.
// It takes a new turn for each pull.
Item {
    id: pull

    required property bool isAtTop

    signal pulled()

    /// In eighths of a degree, as wheels count: three notches.
    readonly property int full: 360
    property int turned: 0
    /// Momentum that arrives at the top is none.
    property bool beganAtTop: false

    anchors.fill: parent

    WheelHandler {
        target: null
        blocking: false
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            if (!rest.running) {
                pull.turned = 0
                pull.beganAtTop = pull.isAtTop
            }
            const before = pull.turned
            pull.turned = pull.beganAtTop ? Math.max(0, before + event.angleDelta.y) : 0
            if (before < pull.full && pull.turned >= pull.full)
                pull.pulled()
            rest.restart()
        }
    }

    // Between one turn and the next.
    Timer {
        id: rest

        interval: 300
    }
}
