// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// The placeholder of an avatar.
SkeletonBox {
    implicitWidth: 32
    implicitHeight: 32
    radius: width / 2
}
