// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tolvane::backend {

/// The opening hours of human agents.
struct Schedules
{
    /// A JSON list.
    std::string json;
    /// As text, like "Mon, Tue 09:00-18:00".
    std::string openingHours;
};

/// Throws a SettingsError.
Schedules parseSchedules(std::string_view json);

} // namespace tolvane::backend
