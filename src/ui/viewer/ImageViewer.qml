// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// Shows the attachments of a message, one at a time, in the whole window on black, with zoom and a
// share menu.
FocusScope {
    id: viewer

    /// The picture to begin with.
    required property url imageUrl
    /// The MessageData in which the picture was selected, with all pictures of the message; may be
    /// null.
    property MessageData messageData: null
    property bool showControls: true
    readonly property alias imageState: zoom
    property bool usesKeys: false
    readonly property bool showsSteps: showControls && (pointer.hovered || usesKeys)

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

    function pictureStepped() {
        zoom.resetImmediately()
        if (messageData)
            messageData.selectedAttachment = pictures.url
        // Moves the focus away from a button that disappears.
        if (!pictures.canStep(1) || !pictures.canStep(-1))
            picture.forceActiveFocus()
    }

    PictureSequence {
        id: pictures

        attachments: viewer.messageData?.attachments ?? []
        first: viewer.imageUrl
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

    PictureSlide {
        id: slide

        anchors.fill: parent
        pictures: pictures
        onStepped: viewer.pictureStepped()
    }

    ZoomableImageView {
        id: picture

        anchors.fill: parent
        focus: true
        imageUrl: pictures.url
        imageState: zoom
        slideOffset: slide.offset
        name: pictures.count === 1 ? Strings.string("accessibility_picture")
              : Strings.string("accessibility_attachment").replace("%1", pictures.index + 1)
                                                          .replace("%2", pictures.count)
        onTapped: viewer.toggleControls()
        onSwiped: distance => slide.follow(distance)
        onSwipeEnded: slide.release()
        // The first Tab only shows hidden controls.
        Keys.enabled: !viewer.showControls
        Keys.onTabPressed: viewer.showControls = true
        Keys.onBacktabPressed: viewer.showControls = true
    }

    PictureNumber {
        id: number

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.margins: Metrics.SmallPadding
        showControls: viewer.showControls && pictures.count > 1
        pictures: pictures
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

    // On a touchscreen the side buttons are not needed, and would cover the picture.
    HoverHandler {
        id: pointer

        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
    }

    StepButton {
        anchors.left: parent.left
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: Metrics.SmallPadding
        showControls: viewer.showsSteps && pictures.canStep(-1)
        isNext: false
        onClicked: slide.step(-1)
    }

    StepButton {
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: Metrics.SmallPadding
        showControls: viewer.showsSteps && pictures.canStep(1)
        isNext: true
        onClicked: slide.step(1)
    }

    ShareMenu {
        id: menu

        anchors.fill: parent
        share: actions.share
        onSaveRequested: saver.save()
        onClosed: isOpen = false
    }

    BriefNotice {
        id: notice

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: number.top
        anchors.bottomMargin: Metrics.SmallPadding
    }

    PictureSaver {
        id: saver

        share: actions.share
        onReported: text => notice.showText(text)
    }

    ViewerKeys {
        id: keys

        imageState: zoom
        pictures: pictures
        isMirrored: viewer.LayoutMirroring.enabled
        onStepRequested: by => slide.step(by)
        onBackRequested: viewer.goBack()
        onControlsToggled: viewer.toggleControls()
        onCopyRequested: actions.share.copy()
        onSaveRequested: saver.save()
    }

    Keys.onPressed: event => {
        usesKeys = true
        keys.handleKey(event)
    }
}
