// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Moves two pictures side by side while one replaces the other, by a finger or by an animation. The
// next picture is on the trailing side.
Item {
    id: slide

    required property PictureSequence pictures

    /// The horizontal distance of the shown picture from the centre.
    property real offset: 0
    /// The picture that is visible beside the shown one: the previous one (-1) or the next one (1);
    /// 0 without one.
    property int neighbour: 0

    readonly property int side: LayoutMirroring.enabled ? -1 : 1

    signal stepped()

    /// @param distance how far the finger has moved
    function follow(distance: real) {
        settling.stop()
        const by = distance * side < 0 ? 1 : -1
        neighbour = pictures.canStep(by) ? by : 0
        // The first and the last picture resist; a single picture does not move.
        offset = neighbour !== 0 ? distance : pictures.count > 1 ? distance / 4 : 0
    }

    function release() {
        if (neighbour === 0 || Math.abs(offset) < width / 5)
            settling.restart()
        else
            step(neighbour)
    }

    /// False if there is no such picture.
    function step(by: int): bool {
        if (by === 0 || !pictures.canStep(by))
            return false
        pictures.step(by)
        offset = Math.max(-width, Math.min(offset + side * by * width, width))
        neighbour = -by
        settling.restart()
        stepped()
        return true
    }

    NumberAnimation {
        id: settling

        target: slide
        property: "offset"
        to: 0
        duration: Metrics.FadeDuration
        easing.type: Easing.OutCubic
        onFinished: slide.neighbour = 0
    }

    Loader {
        x: slide.offset + slide.side * slide.neighbour * slide.width
        width: slide.width
        height: slide.height
        active: slide.neighbour !== 0
        sourceComponent: CachedAsyncImage {
            url: slide.pictures.urlAt(slide.pictures.index + slide.neighbour)
            placeholder: LoadingView {}
            content: RoundedImage { fillMode: RoundedImage.Fit }
        }
    }
}
