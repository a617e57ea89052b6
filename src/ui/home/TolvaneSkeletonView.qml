// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The whole screen until the settings are loaded: a skeleton, or a notice if loading has failed.
Rectangle {
    id: view

    required property ScreenData screen

    readonly property bool hasFailed: screen.settingsErrorText.length > 0

    color: Theme.primaryColor
    Accessible.ignored: hasFailed
    Accessible.role: Accessible.StaticText
    Accessible.name: Strings.string("accessibility_loading")

    Column {
        visible: !view.hasFailed
        // In a low window, the lower end is cut off.
        y: Math.max(0, (parent.height - height) / 2)
        width: parent.width

        TolvaneHeaderSkeletonView { width: parent.width }
        TolvaneListSkeletonView {
            x: Theme.columnInset(parent.width, 0)
            width: parent.width - 2 * x
        }
        TolvaneNewTicketButtonSkeletonView {
            x: Theme.columnInset(parent.width, 0)
            width: parent.width - 2 * x
        }
    }

    TolvaneNotice {
        anchors.fill: parent
        visible: view.hasFailed
        icon: "warning"
        iconColor: Theme.fontBasicColor
        title: Strings.hostString("Something went wrong")
        titleColor: Theme.fontBasicColor
        detail: view.screen.settingsErrorText
        detailColor: Theme.fontBasicColor
        action: Strings.string("error_retry")
        ground: Theme.primaryColor
        isActionEnabled: !view.screen.isLoadingSettings
        onActionRequested: view.screen.loadSettings()
    }

    IconButton {
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Metrics.Padding
        visible: !view.screen.isEmbedded
        icon: "close"
        color: Theme.fontBasicColor
        focusRing.ground: Theme.primaryColor
        name: Strings.string("accessibility_close")
        shortcut: "Esc"
        onClicked: view.screen.close()
    }
}
