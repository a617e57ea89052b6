// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shown when a conversation could not be loaded.
TolvaneNotice {
    id: view

    /// Describes the error in the customer's language.
    required property string errorText

    icon: "warning"
    iconColor: Qt.alpha(Theme.redColor, 0.7)
    iconSize: Metrics.SmallNoticeIconSize
    padding: 2 * Metrics.Padding
    spacing: Metrics.Padding
    textSpacing: Metrics.Padding
    action: Strings.string("error_retry")
    title: Strings.hostString("Something went wrong")
    titleColor: Theme.fontBasicColor
    titleSize: Theme.headline
    detail: errorText
    detailColor: Qt.alpha(Theme.fontBasicColor, 0.7)
    detailSize: Theme.footnote
}
