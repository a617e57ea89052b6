// SPDX-License-Identifier: MIT
#pragma once

/// @file
/// Links a host with the library of views, and embeds them. `tolvane/tolvane.h` includes it in
/// hosts that link `Tolvane::Sdk`; a host that uses the messenger from QML only must include it
/// itself.

#include <tolvane/export.h>

/// Makes the views available to `Tolvane::open()`, and the QML module `Tolvane` to the QML engines
/// of the process. Including this header calls it; further calls have no effect.
/// @return true
extern "C" TOLVANE_VIEWS_EXPORT bool TolvaneSdkViews();

QT_BEGIN_NAMESPACE
class QQuickItem;
QT_END_NAMESPACE

namespace tolvane {

/// Creates the item `Messenger` of the QML module `Tolvane`, for hosts that place it in C++. The
/// caller owns it. Main thread.
[[nodiscard]] TOLVANE_VIEWS_EXPORT QQuickItem *createMessengerItem();

/// Refers to the library of views: linkers drop a library without references, and most hosts refer
/// to the core only.
inline const bool viewsAreLinked = TolvaneSdkViews();

} // namespace tolvane
