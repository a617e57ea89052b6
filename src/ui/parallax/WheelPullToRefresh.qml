// SPDX-License-Identifier: MIT
import QtQuick

// Pull to refresh with a wheel or a trackpad, by turning upwards at the top of a list. Each pull
// needs a new turn.
Item {
    id: pull

    required property bool isAtTop

    signal pulled()

    /// In eighths of a degree, as angleDelta reports it: three notches.
    readonly property int requiredAngle: 360
    property int accumulatedAngle: 0
    /// False for a turn that began below the top, and for its momentum: these do not count.
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

    // After a longer pause, a new turn begins.
    Timer {
        id: gestureTimeout

        interval: 300
    }
}
