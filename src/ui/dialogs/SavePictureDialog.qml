// SPDX-License-Identifier: MIT
import QtQuick.Dialogs
import Tolvane.Private

// Asks where to save a picture, and before another file is replaced.
PictureDialog {
    id: dialog

    signal chosen(url place)

    fileMode: FileDialog.SaveFile
    // Qt's own dialog would offer to open the file.
    acceptLabel: Strings.string("viewer_save").replace(/ ?…$/, "")
    defaultSuffix: "jpg"
    nameFilters: ["JPEG (*.jpg *.jpeg)"]
    onAccepted: {
        if (!layer.replacesUnasked(selectedFile))
            chosen(selectedFile)
        else
            layer.open(question)
    }

    readonly property MessageDialog question: MessageDialog {
        parentWindow: dialog.parentWindow
        text: Strings.string("viewer_replace").arg(dialog.filenameOf(dialog.selectedFile))
        buttons: MessageDialog.Yes | MessageDialog.No
        onAccepted: dialog.chosen(dialog.selectedFile)
    }

    function filenameOf(file: url): string {
        return decodeURIComponent(String(file).replace(/.*\//, ""))
    }
}
