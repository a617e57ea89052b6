// SPDX-License-Identifier: MIT
import QtQuick.Dialogs
import Tolvane.Private

// Asks where to save a picture, and whether to replace an existing file.
PictureDialog {
    id: dialog

    signal fileChosen(url file)

    fileMode: FileDialog.SaveFile
    // The default label of Qt's own dialog is "Open".
    acceptLabel: Strings.string("viewer_save").replace(/ ?…$/, "")
    defaultSuffix: "jpg"
    nameFilters: ["JPEG (*.jpg *.jpeg)"]
    onAccepted: {
        if (layer.needsConfirmation(selectedFile))
            layer.open(confirmation)
        else
            fileChosen(selectedFile)
    }

    readonly property MessageDialog confirmation: MessageDialog {
        parentWindow: dialog.parentWindow
        text: Strings.string("viewer_replace").arg(dialog.filenameOf(dialog.selectedFile))
        buttons: MessageDialog.Yes | MessageDialog.No
        onAccepted: dialog.fileChosen(dialog.selectedFile)
    }

    function filenameOf(file: url): string {
        return decodeURIComponent(String(file).replace(/.*\//, ""))
    }
}
