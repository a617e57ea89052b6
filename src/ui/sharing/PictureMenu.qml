// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The context menu of a picture in a view. The results are shown at the lower edge of this item.
Item {
    id: menu

    /// @param item the item with the picture
    /// @param isLoaded false disables copying and saving
    function openFor(item: Item, url: url, isLoaded: bool, position: point, openPicture: var) {
        loaded.url = url
        pending = null
        popup.openAt(item, position.x, position.y, [
            {text: Strings.string("picture_open"), isEnabled: true, run: openPicture},
            {text: Strings.string("viewer_copy"), isEnabled: isLoaded, run: () => start(share.copy)},
            {text: Strings.string("viewer_save"), isEnabled: isLoaded, run: () => start(saver.save)}
        ])
    }

    // The chosen action, which waits until the file has been encoded.
    property var pending: null

    function start(action: var) {
        pending = action
        runPending()
    }

    function runPending() {
        if (!pending || !share.isReady)
            return
        const action = pending
        pending = null
        action()
    }

    LoadedImage {
        id: loaded

        url: ""
    }

    ImageShare {
        id: share

        source: loaded
        onFileChanged: menu.runPending()
    }

    PictureSaver {
        id: saver

        share: share
        onReported: text => notice.showText(text)
    }

    PopupMenu {
        id: popup

        name: Strings.string("accessibility_picture")
    }

    BriefNotice {
        id: notice

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
    }
}
