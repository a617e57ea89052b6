// SPDX-License-Identifier: MIT
#pragma once

#include "base/jsonnode.h"

namespace tolvane::backend {

/// The opening hours of human agents: a list of schedules.
using Schedules = Json;

/// Throws an InputError.
Schedules parseSchedules(std::string_view text);

/// As text, like "Mon, Tue 09:00-18:00".
std::string openingHours(const Schedules &schedules);

} // namespace tolvane::backend
