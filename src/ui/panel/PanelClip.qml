// SPDX-License-Identifier: MIT
import QtQuick

// The effect of the panel's layer: clips it to a rounded rectangle, antialiased at any scale.
ShaderEffect {
    /// Set by the layer.
    property ShaderEffectSource source
    property real extent
    readonly property real exponent: 2
    readonly property real contentTop: 0
    readonly property size size: Qt.size(width, height)

    fragmentShader: "qrc:/tolvane/shaders/roundedclip.frag.qsb"
}
