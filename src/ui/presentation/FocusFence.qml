// SPDX-License-Identifier: MIT
import QtQuick

// An item at either end of a view. Passes the focus to the other end, so that Tab does not leave the
// view.
Item {
    id: fence

    required property Item otherEnd
    required property bool isFirst

    function passFocus() {
        if (activeFocus)
            otherEnd.nextItemInFocusChain(!isFirst).forceActiveFocus(
                isFirst ? Qt.BacktabFocusReason : Qt.TabFocusReason)
    }

    Keys.onTabPressed: passFocus()
    Keys.onBacktabPressed: passFocus()
    onActiveFocusChanged: if (activeFocus) passTimer.start()

    // The focus must not change again during the current change.
    Timer {
        id: passTimer

        interval: 0
        onTriggered: fence.passFocus()
    }
}
