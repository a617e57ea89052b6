// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// Shows the view that belongs to the state of a load.
Private.LoadingStateView { }
