// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The tickets could not be loaded. Pulling the list down tries again.
TolvaneNotice {
    id: view

    /// The reason for the failure, in the customer's language.
    required property string errorText

    icon: "warning"
    iconColor: Qt.alpha(Theme.redColor, 0.6)
    title: Strings.hostString("Something went wrong")
    titleColor: Theme.fontBasicColor
    detail: errorText
    detailColor: Theme.fontBasicColor
}
