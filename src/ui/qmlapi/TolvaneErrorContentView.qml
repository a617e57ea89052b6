// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// A notice: the conversations could not be loaded.
Private.TolvaneErrorContentView { }
