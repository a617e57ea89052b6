// SPDX-License-Identifier: MIT
import Tolvane
import Tolvane.Private as Private

// Opens the messenger. Shows the number of unread conversations.
Private.HelpButton {
    onClicked: Tolvane.open()
}
