// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

namespace tolvane {

/// The age of the backend's `timestamp` as text, from "Just now" to "More than a week ago": in
/// whole days, else hours, else minutes, of the device's calendar. A day ends at the same time of
/// the next day, even if daylight saving time makes it shorter or longer.
///
/// Timestamps have the format 2026-03-14T12:00:00+0100. Any other text is an unknown time.
TOLVANE_PRIVATE_EXPORT QString timeAgoText(const QString &timestamp);

/// The same for screen readers: an age of a week or more is followed by the date.
TOLVANE_PRIVATE_EXPORT QString spokenTimeAgoText(const QString &timestamp);

/// Date and time of the timestamp on the device's calendar, in the customer's format; empty if the
/// time is unknown.
TOLVANE_PRIVATE_EXPORT QString dateTimeText(const QString &timestamp);

} // namespace tolvane
