// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Logo and greeting, one above the other or side by side.
Item {
    id: layout

    required property bool isCollapsed
    required property bool isLandscape
    required property bool isPresent
    required property int titleSize
    required property int logoSize
    required property int logoRadius

    /// The largest text size up to `titleSize` at which the second line, the longer one, fits; at
    /// least 16. Before the width is known, it must not load a font for the least size.
    readonly property int fittingSize: width <= 0 ? titleSize : Math.max(16, Math.min(titleSize, Math.floor(
                                           availableTextWidth / question.advanceWidth * question.font.pixelSize)))
    /// Fixed, because some fonts have a larger line height, which does not fit into the collapsed
    /// header.
    readonly property int lineHeight: Math.ceil(fittingSize * 1.2)
    readonly property real inset: Theme.columnInset(width, Metrics.Padding)
    readonly property int spacing: isLandscape ? 7 : Metrics.Spacing
    readonly property int closeButtonWidth: Metrics.ButtonSize + Metrics.SmallSpacing
    /// The width for text; when collapsed, logo and close button are beside it.
    readonly property int availableTextWidth: width - 2 * inset - (isCollapsed ? logoSize + spacing + closeButtonWidth : 0)

    opacity: Math.max(0, Math.min(1, presence.value))
    scale: 0.9 + 0.1 * presence.value
    visible: opacity > 0
    clip: true

    TextMetrics {
        id: question

        text: Strings.string("main_subtitle")
        // A font that is shown as well: loading one takes a millisecond.
        font.pixelSize: layout.titleSize
        font.bold: true
    }

    SpringValue {
        id: presence

        target: layout.isPresent ? 1 : 0
        response: 0.15
        dampingFraction: 0.85
    }

    Grid {
        anchors.left: parent.left
        anchors.leftMargin: layout.inset
        // The collapsed landscape header has no room for two lines and the usual margin.
        y: layout.isLandscape && layout.isCollapsed ? 9 : Metrics.Padding
        columns: layout.isCollapsed ? 2 : 1
        spacing: layout.spacing
        verticalItemAlignment: Grid.AlignVCenter

        BrandLogo {
            width: layout.logoSize
            height: layout.logoSize
            radius: layout.logoRadius
        }

        Column {
            Row {
                id: firstLine

                // A column does not mirror positions.
                anchors.left: parent.left

                Text {
                    id: greeting

                    width: Math.min(implicitWidth, layout.availableTextWidth - wave.width)
                    text: Strings.string("main_title")
                    textFormat: Text.PlainText
                    horizontalAlignment: Text.AlignLeft
                    elide: Text.ElideRight
                    color: Qt.alpha(Theme.accentColor, 0.4)
                    font.pixelSize: layout.fittingSize
                    font.bold: true
                    lineHeightMode: Text.FixedHeight
                    lineHeight: layout.lineHeight
                }
                // 👋 as an icon, since the system may have no font for it.
                Icon {
                    id: wave

                    width: layout.lineHeight
                    height: layout.lineHeight
                    name: "colored/wave"
                }
            }
            Text {
                anchors.left: parent.left
                width: Math.min(implicitWidth, layout.availableTextWidth)
                text: Strings.string("main_subtitle")
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignLeft
                elide: Text.ElideRight
                color: Theme.accentColor
                font.pixelSize: layout.fittingSize
                font.bold: true
                lineHeightMode: Text.FixedHeight
                lineHeight: layout.lineHeight
            }
        }
    }
}
