// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The effect of a sheet's layer: clips it to a rounded rectangle, antialiased at any scale.
ShaderEffect {
    /// Set by the layer.
    property ShaderEffectSource source
    readonly property real contentTop: (source?.sourceItem as ParallaxSheet)?.contentTop ?? 0
    readonly property real extent: Parallax.contentCornerExtent
    readonly property real exponent: Parallax.contentCornerExponent
    readonly property size size: Qt.size(width, height)

    fragmentShader: "qrc:/tolvane/shaders/roundedclip.frag.qsb"
}
