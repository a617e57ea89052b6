// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The share button. Encodes the picture as a file as soon as it is loaded.
ViewerControl {
    id: actions

    required property LoadedImage loadedImage
    readonly property alias share: share

    signal shareRequested()

    IconButton {
        focus: true
        icon: "share"
        color: "white"
        focusRing.ground: actions.lightestGround
        focusRing.anchors.margins: 1
        focusRing.radius: focusRing.height / 2
        name: Strings.string("accessibility_share")
        enabled: share.isReady
        // Not bound to `enabled`, which becomes false as soon as the controls start to fade out.
        iconOpacity: share.isReady ? 1 : 0.5
        onClicked: actions.shareRequested()
    }

    ImageShare {
        id: share

        source: actions.loadedImage
    }
}
