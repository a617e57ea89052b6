// SPDX-License-Identifier: MIT
import QtQuick
import QtQuick.Dialogs
// Where the system has no native dialog, QtQuick.Dialogs builds one from these modules, and crashes
// when it is opened without them. Imported here, a missing module is an error that can be reported.
import Qt.labs.folderlistmodel
import QtQuick.Controls
import QtQuick.Layouts
import Tolvane.Private

// A dialog for files, above the messenger. It begins in the folder for pictures.
FileDialog {
    id: dialog

    required property Item owner
    readonly property DialogLayer layer: DialogLayer { }

    function ask() {
        layer.open(dialog)
    }

    parentWindow: owner.Window.window
    currentFolder: layer.picturesFolder
}
