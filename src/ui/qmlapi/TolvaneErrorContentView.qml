// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// The conversations could not be loaded.
Private.TolvaneErrorContentView { }
