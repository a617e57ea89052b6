// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The effect of a sheet's layer: clips it to a rounded rectangle, antialiased at any scale.
ShaderEffect {
    /// Set by the layer.
    property var source
    readonly property real contentTop: source ? source.sourceItem.contentTop : 0
    readonly property real extent: Parallax.contentCornerExtent
    readonly property real exponent: Parallax.contentCornerExponent
    readonly property size size: Qt.size(width, height)

    fragmentShader: "qrc:/tolvane/shaders/roundedclip.frag.qsb"
}
