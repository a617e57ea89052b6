// SPDX-License-Identifier: MIT
import QtQuick
import Tolvane.Private

// A disc in the place of an avatar.
SkeletonBox {
    implicitWidth: 32
    implicitHeight: 32
    radius: width / 2
}
