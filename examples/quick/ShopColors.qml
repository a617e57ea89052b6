// SPDX-License-Identifier: MIT
import QtQuick

// The colors of the shop; they follow the appearance of the desktop.
QtObject {
    readonly property SystemPalette system: SystemPalette { }
    readonly property bool isDark: system.windowText.hslLightness > system.window.hslLightness

    readonly property color background: isDark ? "#0d1519" : "#f5f4f0"
    readonly property color card: isDark ? "#18242a" : "#ffffff"
    readonly property color text: isDark ? "#eaf1f2" : "#14262e"
    readonly property color secondaryText: isDark ? "#9aabb1" : "#5f6f76"
    readonly property color accent: isDark ? "#f6a468" : "#0c3543"
    readonly property color accentText: isDark ? "#0c2530" : "#ffffff"
}
