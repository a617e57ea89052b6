// SPDX-License-Identifier: MIT
import QtQuick
import "contrast.mjs" as Contrasts

// Shows everything that a branding's colours decide, as they are drawn, with its contrast. What is
// too low has a warning.
Rectangle {
    id: page

    /// The fields of a branding, as the backend sends them.
    required property var branding

    /// One line for each contrast that is too low.
    readonly property var warnings: warningsIn("Light").concat(warningsIn("Dark"))

    function warningsIn(appearance: string): var {
        return Contrasts.contrasts(branding, appearance).filter(result => !result.isEnough).map(
            result => appearance + ": " + result.what + ": " + result.ratio.toFixed(2)
                      + " instead of " + result.least)
    }

    width: 1000
    height: columns.height + 48
    color: "#f4f5f7"

    component Line: Text {
        textFormat: Text.PlainText
        color: "#14181f"
        font.pixelSize: 16
    }

    Row {
        id: columns

        x: 24
        y: 24
        spacing: 24

        Repeater {
            model: ["Light", "Dark"]

            Column {
                id: column

                required property string modelData

                width: (page.width - 72) / 2
                spacing: 6

                Line {
                    text: column.modelData
                    font.bold: true
                }
                Repeater {
                    model: Contrasts.contrasts(page.branding, column.modelData)

                    Row {
                        id: line

                        required property var modelData

                        spacing: 12

                        Rectangle {
                            width: column.width - 120
                            height: 34
                            radius: 6
                            color: line.modelData.ground

                            Line {
                                x: 10
                                anchors.verticalCenter: parent.verticalCenter
                                text: line.modelData.what
                                color: line.modelData.colour
                            }
                        }
                        Line {
                            anchors.verticalCenter: parent.verticalCenter
                            text: (line.modelData.isEnough ? "" : "⚠ ")
                                  + line.modelData.ratio.toFixed(2)
                            color: line.modelData.isEnough ? "#14181f" : "#b3261e"
                            font.bold: !line.modelData.isEnough
                        }
                    }
                }
            }
        }
    }
}
