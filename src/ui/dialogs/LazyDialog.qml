// SPDX-License-Identifier: MIT
import QtQuick

// Creates a PictureDialog when it is first opened: its QML module loads slowly, and may not be
// installed with the host.
QtObject {
    id: lazy

    required property Item owner
    required property url source
    property var dialog: null

    /// The dialog could not be created.
    signal failed(string reason)

    /// Opens the dialog with these properties. Returns false if it cannot be created.
    function open(properties: var): bool {
        if (dialog)
            Object.assign(dialog, properties)
        else
            create(properties)
        if (!dialog)
            return false
        dialog.openAboveMessenger()
        return true
    }

    function create(properties: var) {
        const component = Qt.createComponent(source)
        if (component.status === Component.Ready)
            dialog = component.createObject(owner, Object.assign({owner: owner}, properties))
        if (!dialog)
            failed(component.errorString())
    }
}
