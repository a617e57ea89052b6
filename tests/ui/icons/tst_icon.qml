// SPDX-License-Identifier: MIT
import QtQuick
import QtTest
import Tolvane.Private

Rectangle {
    id: paper

    width: 48
    height: 48
    color: "white"

    Icon {
        id: icon

        anchors.centerIn: parent
    }

    TestCase {
        name: "Icon"
        when: windowShown

        function test_drawn_data() {
            const disc = "person-circle"
            return [
                {tag: "its own size", name: disc, size: [24, 24], saw: ["#ffffff", "#00ff00"]},
                {tag: "larger", name: disc, size: [48, 48], saw: ["#00ff00", "#00ff00"]},
                {tag: "as large as fits", name: disc, size: [48, 24], saw: ["#ffffff", "#00ff00"]},
                {tag: "no room", name: disc, size: [0, 24], saw: ["#ffffff", "#ffffff"]},
                {tag: "another colour", name: disc, size: [24, 24], color: "#0000ff",
                 saw: ["#ffffff", "#0000ff"]},
                {tag: "its own colours", name: "colored/robot", size: [24, 24],
                 saw: ["#7b8a99", "#7b8a99"], at: [[2, 14], [21, 14]]},
                {tag: "no name", name: "", size: [24, 24], saw: ["#ffffff", "#ffffff"]},
                {tag: "an unknown name", name: "../icons/no such", size: [24, 24],
                 saw: ["#ffffff", "#ffffff"], warning: /there is no icon/},
            ]
        }

        function test_drawn(data) {
            compare([icon.implicitWidth, icon.implicitHeight], [24, 24])
            if (data.warning)
                ignoreWarning(data.warning)
            icon.color = data.color ?? "#00ff00"
            icon.name = data.name
            icon.width = data.size[0]
            icon.height = data.size[1]
            const shot = grabImage(paper)
            const places = data.at?.map(place => place.map(at => at + 12)) ?? [[6, 23], [15, 23]]
            compare(places.map(place => String(shot.pixel(place[0], place[1]))), data.saw)
        }
    }
}
