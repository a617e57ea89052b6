// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

namespace tolvane {

/// How long ago the backend's `timestamp` is, in words: from "Just now" to "More than a week ago",
/// in whole days, else hours, else minutes, on the device's calendar. A day is over at the same
/// time on the next day, also where a change of the clock makes it an hour shorter or longer.
///
/// Timestamps look like 2026-03-14T12:00:00+0100 and in no other way; what doesn't, or is no date,
/// is an unknown time.
TOLVANE_PRIVATE_EXPORT QString timeAgoText(const QString &timestamp);

} // namespace tolvane
