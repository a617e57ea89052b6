// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Dialogs
// If the system has no native dialog, QtQuick.Dialogs creates one with these modules, and crashes
// if they are missing. These imports turn the crash into an error of the component.
import Qt.labs.folderlistmodel
import QtQuick.Controls
import QtQuick.Layouts
import Tolvane.Private

// A file dialog above the messenger, which starts in the folder for pictures.
FileDialog {
    id: dialog

    required property Item owner
    readonly property DialogLayer layer: DialogLayer { }

    function openAboveMessenger() {
        layer.open(dialog)
    }

    parentWindow: owner.Window.window
    currentFolder: layer.picturesFolder
}
