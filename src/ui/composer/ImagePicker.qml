// SPDX-License-Identifier: MIT
import QtQuick.Dialogs
import Tolvane.Private

// The file dialog for attaching pictures.
PictureDialog {
    required property var patterns

    signal picked(var files)

    fileMode: FileDialog.OpenFiles
    title: Strings.string("accessibility_attach")
    acceptLabel: title
    nameFilters: [title + " (" + patterns.join(" ") + ")"]
    onAccepted: picked(selectedFiles)
}
