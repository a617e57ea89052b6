// SPDX-License-Identifier: MIT
#pragma once

#include "branding.h"
#include "schedules.h"

#include <string>

namespace tolvane::backend {

/// What is the same for all customers.
struct Settings
{
    Branding branding;
    Schedules schedules;
    /// Whether the scripted agents answer at all.
    bool answersAutomatically = true;
    /// The bytes of the scripted human agent's picture, a PNG.
    std::string portrait;
};

/// An empty path takes what is built in. Throws a StartError that names the file and what is wrong.
Settings loadSettings(const std::string &brandingPath, const std::string &schedulesPath);

/// A file of the build, below ":/tolvane-backend/".
std::string asset(const std::string &name);

} // namespace tolvane::backend
