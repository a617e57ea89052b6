// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tolvane::backend {

/// When people are there to answer.
struct Schedules
{
    /// A list, the same for every ticket.
    std::string json;
    /// The same for people, like "Mon, Tue 09:00-18:00".
    std::string openingHours;
};

/// Throws a SettingsError.
Schedules parseSchedules(std::string_view json);

} // namespace tolvane::backend
