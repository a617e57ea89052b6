// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Sends the message, and shows progress while it is being sent.
FocusScope {
    id: button

    required property ComposerData composer
    /// True while an input method composes text, which is sent, too.
    property bool isComposing: false

    signal clicked()

    implicitWidth: Metrics.ComposerButtonSize
    implicitHeight: Metrics.ComposerButtonSize

    IconButton {
        anchors.fill: parent
        focus: true
        visible: !button.composer.isSendingMessage
        enabled: !button.composer.isSendDisabled || button.isComposing
        isDimmed: button.composer.isSendDisabled && !button.isComposing
        icon: "paperplane"
        iconSize: Metrics.ComposerIconSize
        mirrors: true
        color: Theme.fontBasicColor
        name: Strings.string("accessibility_send")
        shortcut: ViewOptions.enterSends ? "Enter" : "Ctrl+Enter"
        onClicked: button.clicked()
    }

    Item {
        anchors.fill: parent
        visible: button.composer.isSendingMessage
        Accessible.role: Accessible.Indicator
        Accessible.name: Strings.string("accessibility_sending")

        ProgressIndicator {
            anchors.centerIn: parent
            tint: Theme.fontBasicColor
        }
    }
}
