// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Samples
import Tolvane.Private

Rectangle {
    width: 240
    height: 240
    color: "white"

    Rectangle {
        id: backdrop

        width: 120
        height: 120
        color: "gray"

        RoundedClip {
            id: clip

            anchors.fill: parent

            RoundedImage {
                id: picture

                anchors.fill: parent
            }
        }
    }

    TestCase {
        name: "RoundedImage"
        when: windowShown

        readonly property var wide: Samples.quarters(400, 200)
        readonly property var tall: Samples.quarters(200, 400)

        function init() {
            picture.image = wide
            picture.fillMode = RoundedImage.Stretch
            picture.radius = 0
            picture.corners = RoundedImage.AllCorners
            picture.circle = false
            picture.rotation = 0
            clip.radius = 0
            backdrop.height = 120
        }

        /// The colours at the positions as letters: of a quarter, the backdrop (.) or others (?).
        function colorsAt(positions) {
            const shot = grabImage(backdrop)
            const letters = {"#ff0000": "r", "#00ff00": "g", "#0000ff": "b", "#ffff00": "y",
                             "#808080": "."}
            return positions.map(([x, y]) => letters[String(shot.pixel(x, y))] ?? "?").join("")
        }

        function test_placement_data() {
            const middles = [[30, 30], [90, 30], [30, 90], [90, 90]]
            const edges = [[60, 2], [60, 117], [2, 50], [117, 50]]
            return [
                {tag: "stretch", mode: RoundedImage.Stretch, image: wide, at: middles, colors: "rgby"},
                {tag: "fit, wide", mode: RoundedImage.Fit, image: wide,
                 at: [[2, 32], [117, 32], [2, 88], [117, 88], [60, 27], [60, 93]], colors: "rgby.."},
                {tag: "fit, tall", mode: RoundedImage.Fit, image: tall,
                 at: [[32, 2], [88, 2], [32, 117], [88, 117], [27, 60], [93, 60]], colors: "rgby.."},
                {tag: "fill, wide", mode: RoundedImage.Fill, image: wide,
                 at: [[2, 2], [117, 2], [2, 117], [117, 117]], colors: "rgby"},
                {tag: "fill, tall", mode: RoundedImage.Fill, image: tall,
                 at: [[57, 2], [63, 2], [57, 117], [63, 117]], colors: "rgby"},
            ]
        }

        function test_placement(data) {
            picture.image = data.image
            picture.fillMode = data.mode
            compare(colorsAt(data.at), data.colors)
        }

        function test_corners_data() {
            return [
                {tag: "no corner", corners: 0, colors: "rgby"},
                {tag: "all", corners: RoundedImage.AllCorners, colors: "...."},
                {tag: "top left", corners: RoundedImage.TopLeft, colors: ".gby"},
                {tag: "three", corners: RoundedImage.AllCorners & ~RoundedImage.BottomRight,
                 colors: "...y"},
                {tag: "clip", clips: true, corners: RoundedImage.AllCorners, colors: "...."},
                {tag: "clip, three", clips: true, corners: 7, colors: "...y"},
            ]
        }

        function test_corners(data) {
            if (data.clips && GraphicsInfo.api === GraphicsInfo.Software)
                skip("It clips to rectangles only")
            const item = data.clips ? clip : picture
            item.radius = 30
            item.corners = data.corners
            backdrop.height = 100
            compare(colorsAt([[3, 3], [116, 3], [3, 96], [116, 96]]), data.colors)
            backdrop.height = 120
            compare(colorsAt([[3, 3], [116, 3], [3, 116], [116, 116]]), data.colors)
            compare(colorsAt([[12, 12], [107, 12], [12, 107], [107, 107]]), "rgby")
        }

        function test_circle_data() {
            const outside = [[16, 16], [103, 16], [16, 103], [103, 103]]
            return [
                {tag: "fill", mode: RoundedImage.Fill, at: outside, colors: "...."},
                {tag: "stretch", mode: RoundedImage.Stretch, at: outside, colors: "...."},
                {tag: "fit", mode: RoundedImage.Fit,
                 at: [[27, 55], [93, 55], [33, 55], [87, 55], [33, 65], [87, 65]],
                 colors: "..rgby"},
            ]
        }

        function test_circle(data) {
            picture.circle = true
            picture.fillMode = data.mode
            compare(colorsAt(data.at), data.colors)
            compare(colorsAt([[50, 50], [70, 50], [50, 70], [70, 70]]), "rgby")
        }
    }
}
