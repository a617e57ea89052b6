// SPDX-License-Identifier: MIT
import QtQuick

// Pulling with a wheel or a trackpad: turning further upwards at the top of a list. Each pull needs
// a new turn.
Item {
    id: pull

    required property bool isAtTop

    signal pulled()

    /// In eighths of a degree, as angleDelta reports it: three notches.
    readonly property int full: 360
    property int turned: 0
    /// Momentum that reaches the top does not count.
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

    // A turn that follows after a longer pause is a new one.
    Timer {
        id: rest

        interval: 300
    }
}
