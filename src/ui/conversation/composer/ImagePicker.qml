// SPDX-License-Identifier: MIT
import QtQuick.Dialogs
import Tolvane

// The system's file dialog, for pictures, as many as one likes.
FileDialog {
    id: dialog

    required property list<string> patterns

    signal picked(list<url> files)

    fileMode: FileDialog.OpenFiles
    title: Texts.string("accessibility_attach")
    nameFilters: [title + " (" + patterns.join(" ") + ")"]
    onAccepted: picked(selectedFiles)
}
