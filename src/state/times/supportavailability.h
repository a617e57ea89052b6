// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

namespace tolvane {

/// Whether support is available now and, if not, roughly when it opens.
struct SupportAvailability
{
    bool isAvailable = false;
    /// In the customer's language.
    QString text;
};

/// Evaluates the schedules for the current moment of the device's calendar. The first open schedule
/// decides, else the shortest wait for an opening within the next six days. If today's opening has
/// passed, the one in a week is not considered.
///
/// Only the time of day of a schedule's start and end counts, in whole minutes, both included, on
/// each of its days. A range across midnight is never open. A schedule is ignored if its start or
/// end is not an ISO 8601 date-time with a time zone.
TOLVANE_PRIVATE_EXPORT SupportAvailability supportAvailability(const QList<ScheduleDto> &schedules);

} // namespace tolvane
