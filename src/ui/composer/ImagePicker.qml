// SPDX-License-Identifier: MIT
import QtQuick.Dialogs
// Where the system has no native dialog, QtQuick.Dialogs builds one from these modules, and crashes
// when it is opened without them. Imported here, a missing module is an error that can be reported.
import Qt.labs.folderlistmodel
import QtQuick.Controls
import QtQuick.Layouts
import Tolvane.Private

// The system's file dialog, for any number of pictures.
FileDialog {
    id: dialog

    required property var patterns

    signal picked(var files)

    fileMode: FileDialog.OpenFiles
    title: Strings.string("accessibility_attach")
    nameFilters: [title + " (" + patterns.join(" ") + ")"]
    onAccepted: picked(selectedFiles)
}
