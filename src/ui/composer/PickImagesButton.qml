// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Opens the system's picker for pictures and attaches the picked files.
IconButton {
    id: button

    required property ComposerData composer
    /// A component with a signal `picked(files)`, a function `open()` and `patterns` to filter by.
    /// Created on the first press: its module loads slowly, and not every host ships it.
    property url pickerSource: Qt.resolvedUrl("ImagePicker.qml")
    property var picker: null

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
        if (picker || createPicker())
            picker.open()
    }

    function attachWindow() {
        composer.attachHostWindow(button)
    }

    PopupMenu {
        id: menu

        name: button.name
    }

    function createPicker() {
        const component = Qt.createComponent(pickerSource)
        if (component.status === Component.Ready)
            picker = component.createObject(button, {patterns: composer.imagePatterns})
        if (!picker)
            composer.logPickerError(component.errorString())
        return picker
    }

    Connections {
        target: button.picker
        ignoreUnknownSignals: true

        function onPicked(files) {
            button.composer.addFiles(files)
        }
    }
}
