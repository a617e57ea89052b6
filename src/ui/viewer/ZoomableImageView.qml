// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A picture that fills the item, zoomed and panned by fingers, pointer and wheel.
Item {
    id: view

    required property url imageUrl
    required property ZoomController imageState
    /// For screen readers.
    required property string name
    readonly property alias loadedImage: loaded
    /// The horizontal distance from the centre while one picture replaces another.
    property real slideOffset: 0
    readonly property bool hasPicture: picture.implicitWidth > 0

    signal tapped()
    signal swiped(real distance)
    signal swipeEnded()

    clip: true
    activeFocusOnTab: true
    Accessible.role: Accessible.Graphic
    Accessible.name: name
    Accessible.focusable: true
    Accessible.onPressAction: tapped()

    LoadedImage {
        id: loaded

        url: view.imageUrl
    }

    // Zoom and pan only change the transform, so the texture is uploaded once.
    CachedAsyncImage {
        id: picture

        readonly property real fit: Math.min(view.width / implicitWidth,
                                             view.height / implicitHeight)
        // The software renderer paints the picture at the size of this item. Twice the size keeps
        // some detail for zooming in.
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
            x: view.imageState.shownOffset.x + view.slideOffset
            y: view.imageState.shownOffset.y
        }
    }

    ZoomGestures {
        anchors.fill: parent
        enabled: view.hasPicture
        imageState: view.imageState
        onTapped: view.tapped()
        onSwiped: distance => view.swiped(distance)
        onSwipeEnded: view.swipeEnded()
    }
}
