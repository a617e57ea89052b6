// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shown while a conversation has no messages.
TolvaneNotice {
    icon: "bubbles"
    iconColor: Theme.primaryColor
    iconSize: 48
    padding: 32
    spacing: 16
    detail: Strings.string("ticket_new_hint")
    titleSize: Theme.headline
    detailColor: Theme.fontBasicColor
}
