// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Saves a picture under a path that the customer chooses, and reports the results of saving and
// copying.
Item {
    id: saver

    required property ImageShare share

    signal reported(string text)

    function save() {
        if (share.isReady && !dialog.open({selectedFile: share.suggestedUrl}))
            share.saveToPictures()
    }

    LazyDialog {
        id: dialog

        owner: saver
        source: Qt.resolvedUrl("../dialogs/SavePictureDialog.qml")
    }

    Connections {
        target: dialog.dialog
        ignoreUnknownSignals: true

        function onFileChosen(file) { saver.share.save(file) }
    }

    Connections {
        target: saver.share

        function onSaved(path) { saver.reported(Strings.string("viewer_saved").arg(path)) }
        function onFailed(reason) { saver.reported(Strings.string("viewer_save_failed").arg(reason)) }
        function onCopied() { saver.reported(Strings.string("viewer_copied")) }
    }
}
