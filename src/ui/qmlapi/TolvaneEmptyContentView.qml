// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// There are no conversations yet.
Private.TolvaneEmptyContentView { }
