// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// A view for each state of something remote.
Private.LoadingStateView { }
