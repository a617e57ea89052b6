// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The customer has no tickets yet.
TolvaneNotice {
    icon: "bubbles"
    iconColor: Qt.alpha(Theme.primaryColor, 0.8)
    plateColor: Theme.accentColor
    title: Strings.hostString("No conversations yet")
    titleColor: Theme.accentColor
    detail: Strings.hostString("Start a new conversation to get help")
    detailColor: Qt.alpha(Theme.accentColor, 0.6)
}
