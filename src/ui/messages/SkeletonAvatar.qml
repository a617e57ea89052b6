// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of an avatar.
SkeletonBox {
    implicitWidth: Metrics.AvatarSize
    implicitHeight: Metrics.AvatarSize
    radius: width / 2
}
