// SPDX-License-Identifier: MIT
import QtQuick

// Pulling with a wheel or a trackpad: turning further upwards at the top of a list. Each pull needs
// a new turn.
Item {
    id: pull

    required property bool isAtTop

    signal pulled()

    /// In eighths of a degree, as angleDelta reports it: three notches.
    readonly property int requiredAngle: 360
    property int accumulatedAngle: 0
    /// Momentum that reaches the top does not count.
    property bool startedAtTop: false

    anchors.fill: parent

    WheelHandler {
        target: null
        blocking: false
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        onWheel: event => {
            if (!gestureTimeout.running) {
                pull.accumulatedAngle = 0
                pull.startedAtTop = pull.isAtTop
            }
            const before = pull.accumulatedAngle
            pull.accumulatedAngle = pull.startedAtTop ? Math.max(0, before + event.angleDelta.y) : 0
            if (before < pull.requiredAngle && pull.accumulatedAngle >= pull.requiredAngle)
                pull.pulled()
            gestureTimeout.restart()
        }
    }

    // A turn that follows after a longer pause is a new one.
    Timer {
        id: gestureTimeout

        interval: 300
    }
}
