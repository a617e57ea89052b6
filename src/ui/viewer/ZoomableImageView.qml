// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// One picture in all the room there is, zoomed and panned by fingers, pointer and wheel.
Item {
    id: view

    required property url imageUrl
    required property ImageState imageState
    readonly property alias loadedImage: loaded
    readonly property bool hasPicture: picture.implicitWidth > 0

    signal tapped()

    clip: true
    activeFocusOnTab: true
    Accessible.role: Accessible.Graphic
    Accessible.name: Texts.string("accessibility_picture")
    Accessible.focusable: true
    Accessible.onPressAction: tapped()

    LoadedImage {
        id: loaded

        url: view.imageUrl
    }

    // On the way, nothing but its place on the screen changes: it is drawn from what has been
    // uploaded once.
    CachedAsyncImage {
        id: picture

        readonly property real fit: Math.min(view.width / implicitWidth,
                                             view.height / implicitHeight)
        // Without a graphics processor the picture is painted at the size that it has here. Twice
        // that leaves something to zoom into.
        readonly property real detail: view.hasPicture && GraphicsInfo.api === GraphicsInfo.Software
                                       ? Math.max(1, Math.min(2, 1 / fit)) : 1

        anchors.centerIn: parent
        width: view.width * detail
        height: view.height * detail
        url: view.imageUrl
        placeholder: LoadingView {}
        content: RoundedImage { fillMode: RoundedImage.Fit }
        scale: view.hasPicture ? view.imageState.shownScale / detail : 1
        transform: Translate {
            x: view.imageState.shownOffset.x
            y: view.imageState.shownOffset.y
        }
    }

    ZoomGestures {
        anchors.fill: parent
        enabled: view.hasPicture
        imageState: view.imageState
        onTapped: view.tapped()
    }
}
