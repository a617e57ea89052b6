// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// Shows the view for the state of a load.
Private.LoadingStateView { }
