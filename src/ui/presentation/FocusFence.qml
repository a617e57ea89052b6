// SPDX-License-Identifier: MIT
import QtQuick

// At either end of a view: passes the focus on to the other end, so that Tab does not leave the view.
Item {
    id: fence

    required property Item otherEnd
    required property bool isFirst

    function passOn() {
        if (activeFocus)
            otherEnd.nextItemInFocusChain(!isFirst).forceActiveFocus(
                isFirst ? Qt.BacktabFocusReason : Qt.TabFocusReason)
    }

    Keys.onTabPressed: passOn()
    Keys.onBacktabPressed: passOn()
    onActiveFocusChanged: if (activeFocus) later.start()

    // This change of the focus has to end first.
    Timer {
        id: later

        interval: 0
        onTriggered: fence.passOn()
    }
}
