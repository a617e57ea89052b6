// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

namespace tolvane {

/// Whether people are there to answer, and else roughly when.
struct SupportAvailability
{
    bool isAvailable = false;
    /// In the customer's language.
    QString text;
};

/// What the schedules say of this moment, on the device's calendar. The first schedule that is open
/// decides. Otherwise the shortest wait for an opening does, within the next six days; an opening
/// on today's weekday that has passed is not looked for a week ahead.
///
/// Of a schedule's start and end only the time of day counts, in whole minutes, both included; it
/// is the same on each of the days. A range that goes over midnight is never open. A schedule whose
/// start or end is no date and time of ISO 8601 with a time zone counts for nothing.
TOLVANE_PRIVATE_EXPORT SupportAvailability supportAvailability(const QList<ScheduleDto> &schedules);

} // namespace tolvane
