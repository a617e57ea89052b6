// SPDX-License-Identifier: MIT
import Tolvane.Private as Private

// A header, and a sheet that scrolls over it.
Private.ParallaxScrollView { }
