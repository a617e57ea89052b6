// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The branding's logo for the current appearance; an icon if the branding has no logo.
Item {
    id: logo

    property int radius: 0

    CachedAsyncImage {
        anchors.fill: parent
        visible: Theme.hasLogo
        url: Theme.hasLogo ? Theme.logo : ""
        content: RoundedImage {
            fillMode: RoundedImage.Fit
            radius: logo.radius
        }
        placeholder: ImagePlaceholder {
            indicatorScale: 0.8
            tint: Theme.accentColor
        }
    }

    Icon {
        anchors.fill: parent
        visible: !Theme.hasLogo
        name: "photo"
        color: Theme.accentColor
    }
}
