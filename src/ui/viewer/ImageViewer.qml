// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows one attachment in the whole window on black, with zoom and a share menu.
FocusScope {
    id: viewer

    required property url imageUrl
    /// The MessageData in which the picture was selected; may be null.
    property MessageData messageData: null
    property bool showControls: true
    readonly property alias imageState: zoom

    signal backRequested()

    function goBack() {
        // Allows the same picture to be selected again.
        if (messageData)
            messageData.selectedAttachment = ""
        backRequested()
    }

    function toggleControls() {
        showControls = !showControls
        if (!showControls)
            picture.forceActiveFocus()
    }

    function save() {
        const share = actions.share
        if (share.isReady && !saving.open({selectedFile: share.suggestedUrl}))
            share.saveToPictures()
    }

    ZoomController {
        id: zoom

        geometry: Qt.size(viewer.width, viewer.height)
    }

    Rectangle {
        anchors.fill: parent
        color: "black"

        PointerBlocker { }
    }

    ZoomableImageView {
        id: picture

        anchors.fill: parent
        focus: true
        imageUrl: viewer.imageUrl
        imageState: zoom
        onTapped: viewer.toggleControls()
        // The first Tab only shows hidden controls.
        Keys.enabled: !viewer.showControls
        Keys.onTabPressed: viewer.showControls = true
        Keys.onBacktabPressed: viewer.showControls = true
    }

    BackButton {
        id: back

        anchors.left: parent.left
        anchors.top: parent.top
        anchors.margins: Metrics.SmallPadding
        showControls: viewer.showControls
        onClicked: viewer.goBack()
    }

    ImageActions {
        id: actions

        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Metrics.SmallPadding
        showControls: viewer.showControls
        loadedImage: picture.loadedImage
        onShareRequested: menu.isOpen = true
    }

    ShareMenu {
        id: menu

        anchors.fill: parent
        share: actions.share
        onSaveRequested: viewer.save()
        onClosed: isOpen = false
    }

    BriefNotice {
        id: notice

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 24
    }

    LazyDialog {
        id: saving

        owner: viewer
        source: Qt.resolvedUrl("../dialogs/SavePictureDialog.qml")
    }

    Connections {
        target: saving.dialog
        ignoreUnknownSignals: true

        function onChosen(place) { actions.share.save(place) }
    }

    Connections {
        target: actions.share

        function onSaved(place) { notice.showText(Strings.string("viewer_saved").arg(place)) }
        function onFailed(reason) { notice.showText(Strings.string("viewer_save_failed").arg(reason)) }
        function onCopied() { notice.showText(Strings.string("viewer_copied")) }
    }

    ViewerKeys {
        id: keys

        imageState: zoom
        onBackRequested: viewer.goBack()
        onControlsToggled: viewer.toggleControls()
        onCopyRequested: actions.share.copy()
        onSaveRequested: viewer.save()
    }

    Keys.onPressed: event => keys.handleKey(event)
}
