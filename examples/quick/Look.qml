// SPDX-License-Identifier: MIT
import QtQuick

// The colours of the shop, which follow the appearance of the desktop.
QtObject {
    readonly property SystemPalette system: SystemPalette { }
    readonly property bool isDark: system.windowText.hslLightness > system.window.hslLightness

    readonly property color ground: isDark ? "#0d1519" : "#f5f4f0"
    readonly property color card: isDark ? "#18242a" : "#ffffff"
    readonly property color text: isDark ? "#eaf1f2" : "#14262e"
    readonly property color quiet: isDark ? "#9aabb1" : "#5f6f76"
    readonly property color strong: isDark ? "#f6a468" : "#0c3543"
    readonly property color contrast: isDark ? "#0c2530" : "#ffffff"
}
