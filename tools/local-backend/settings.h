// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tolvane::backend {

/// What is the same for all customers.
struct Settings
{
    /// A JSON object, in which "{base}" stands for the base address; and its field of that name.
    std::string branding;
    std::string brandingUpdatedAt;
    /// A JSON list, and the same for people, like "Mon, Tue 09:00-18:00".
    std::string schedules;
    std::string openingHours;
    /// The bytes of the human agent's picture, a PNG.
    std::string portrait;
};

/// An empty path takes what is built in. Throws a StartError that names the file and what is wrong.
Settings loadSettings(const std::string &brandingPath, const std::string &schedulesPath);

} // namespace tolvane::backend
