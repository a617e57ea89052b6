// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// What ties a host to the library of views. `tolvane/tolvane.h` includes it in hosts that link
/// `Tolvane::Sdk`; one that speaks to the messenger in QML alone includes it itself.

#include <tolvane/export.h>

/// Makes the views available to `Tolvane::open()`, and the QML module `Tolvane` to the engines of
/// the process. Including this header calls it, any further call changes nothing.
/// @return true
extern "C" TOLVANE_VIEWS_EXPORT bool TolvaneSdkViews();

namespace tolvane {

/// Linkers leave out a library that nothing refers to, and most hosts refer to the logic only: this
/// is the reference.
inline const bool viewsAreLinked = TolvaneSdkViews();

} // namespace tolvane
