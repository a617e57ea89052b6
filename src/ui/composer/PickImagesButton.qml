// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Opens the image picker and attaches the picked files.
IconButton {
    id: button

    required property ComposerData composer
    property url pickerSource: Qt.resolvedUrl("ImagePicker.qml")

    implicitWidth: Metrics.ComposerButtonSize
    implicitHeight: Metrics.ComposerButtonSize
    icon: "paperclip"
    iconSize: Metrics.ComposerIconSize
    color: Theme.fontBasicColor
    name: Strings.string("accessibility_attach")
    enabled: !composer.isSendingMessage
    isDimmed: composer.isSendingMessage
    onClicked: {
        if (ViewOptions.isScreenshotEnabled)
            menu.openAt(button, 0, -button.height, [
                {text: Strings.string("composer_attach_files"), isEnabled: true, run: openPicker},
                {text: Strings.string("composer_attach_window"), isEnabled: true, run: attachWindow}
            ])
        else
            openPicker()
    }

    function openPicker() {
        picker.open({patterns: composer.imagePatterns})
    }

    function attachWindow() {
        composer.attachHostWindow(button)
    }

    PopupMenu {
        id: menu

        name: button.name
    }

    LazyDialog {
        id: picker

        owner: button
        source: button.pickerSource
        onFailed: reason => button.composer.logPickerError(reason)
    }

    Connections {
        target: picker.dialog
        ignoreUnknownSignals: true

        function onPicked(files) {
            button.composer.addFiles(files)
        }
    }
}
