// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// An icon, a title and a line of detail, shown instead of content.
Item {
    id: notice

    required property string icon
    required property color iconColor
    /// A colour that iconColor is legible on. Lies behind the icon where the ground is too similar to it.
    property color plateColor: "transparent"
    property string title
    property color titleColor
    property int titleSize: Theme.title3
    property string detail
    property color detailColor
    property int detailSize: Theme.callout
    /// The text of a button beneath the detail; no button if it is empty.
    property string action
    property bool isActionEnabled: true
    property color ground: Theme.chatBackgroundColor
    property int iconSize: Metrics.NoticeIconSize
    property int padding: 2 * Metrics.WidePadding
    property int spacing: Metrics.WidePadding
    property int textSpacing: Metrics.SmallSpacing
    /// The visible height, in which the notice is centred.
    property real visibleHeight: height

    signal actionRequested()

    /// True if the height is small. Margins and spacing are reduced then.
    readonly property bool isCompact:
        visibleHeight < iconSize + spacing + texts.implicitHeight + 2 * padding
                         + (action.length > 0 ? button.implicitHeight + spacing : 0)
    /// False in windows that are too low for the button, even without the icon. There, a key and a
    /// pull have the same effect, and failed requests are repeated automatically.
    readonly property bool hasAction: action.length > 0 &&
        visibleHeight >= texts.implicitHeight + button.implicitHeight + 3 * Metrics.SmallPadding
    readonly property real verticalPadding: isCompact ? Metrics.SmallPadding : padding
    // Large text needs more width.
    readonly property real horizontalPadding: titleSize > 28 ? Metrics.Padding : padding

    implicitHeight: column.implicitHeight + 2 * verticalPadding
    Accessible.role: Accessible.StaticText
    Accessible.name: title.length > 0 ? title + ". " + detail : detail

    Column {
        id: column

        x: notice.horizontalPadding
        y: Math.max(notice.verticalPadding, (Math.min(notice.height, notice.visibleHeight) - height) / 2)
        width: parent.width - 2 * x
        spacing: notice.isCompact ? Metrics.SmallSpacing : notice.spacing

        Icon {
            anchors.horizontalCenter: parent.horizontalCenter
            visible: !notice.isCompact || notice.action.length === 0
            width: notice.isCompact ? 0.7 * notice.iconSize : notice.iconSize
            height: width
            name: notice.icon
            color: notice.iconColor

            Rectangle {
                anchors.centerIn: parent
                z: -1
                width: 1.4 * parent.width
                height: width
                radius: width / 2
                visible: !Qt.colorEqual(notice.iconColor, Theme.visibleOn(notice.ground, notice.iconColor))
                color: notice.plateColor
            }
        }
        Column {
            id: texts

            width: parent.width
            spacing: notice.isCompact ? Metrics.SmallSpacing : notice.textSpacing

            Text {
                width: parent.width
                visible: notice.title.length > 0
                text: notice.title
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                color: notice.titleColor
                font.pixelSize: notice.titleSize
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }
            Text {
                width: parent.width
                text: notice.detail
                textFormat: Text.PlainText
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
                maximumLineCount: 12
                elide: Text.ElideRight
                color: notice.detailColor
                font.pixelSize: notice.detailSize
                Accessible.ignored: true
            }
        }
        TextButton {
            id: button

            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitWidth, parent.width)
            visible: notice.hasAction
            enabled: notice.isActionEnabled
            // Not bound to `enabled`, which is also false while the page slides out.
            opacity: notice.isActionEnabled ? 1 : 0.5
            name: notice.action
            color: notice.detailColor
            focusRing.ground: notice.ground
            onClicked: notice.actionRequested()
        }
    }
}
