// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shown while a conversation has no messages.
TolvaneNotice {
    icon: "bubbles"
    iconColor: Theme.primaryColor
    plateColor: Theme.accentColor
    iconSize: Metrics.SmallNoticeIconSize
    padding: 2 * Metrics.Padding
    spacing: Metrics.Padding
    detail: Strings.string("ticket_new_hint")
    titleSize: Theme.headline
    detailColor: Theme.fontBasicColor
}
