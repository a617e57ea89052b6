// SPDX-License-Identifier: MIT
#pragma once

#include "settings/branding.h"
#include "settings/schedules.h"

#include <string>

namespace tolvane::backend {

/// The settings that apply to all customers.
struct Settings
{
    Branding branding;
    Schedules schedules;
    /// Whether the scripted agents reply.
    bool repliesAutomatically = true;
    /// The bytes of the scripted human agent's picture, a PNG.
    std::string portrait;
};

/// Loads the built-in settings for an empty path. Throws a StartError with the file and the reason.
Settings loadSettings(const std::string &brandingPath, const std::string &schedulesPath);

/// Returns the content of a resource below ":/tolvane-backend/".
std::string asset(const std::string &name);

} // namespace tolvane::backend
