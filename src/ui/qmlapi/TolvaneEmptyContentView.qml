// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// A notice: there are no conversations yet.
Private.TolvaneEmptyContentView { }
