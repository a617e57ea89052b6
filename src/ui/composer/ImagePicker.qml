// SPDX-License-Identifier: MIT
import QtQuick.Dialogs
// Where the system has no dialog of its own, the module's is made of these, and without them it
// crashes as it opens. Imported here, what is missing is an error that can be told.
import Qt.labs.folderlistmodel
import QtQuick.Controls
import QtQuick.Layouts
import Tolvane.Private

// The system's file dialog, for pictures, as many as one likes.
FileDialog {
    id: dialog

    required property var patterns

    signal picked(var files)

    fileMode: FileDialog.OpenFiles
    title: Texts.string("accessibility_attach")
    nameFilters: [title + " (" + patterns.join(" ") + ")"]
    onAccepted: picked(selectedFiles)
}
