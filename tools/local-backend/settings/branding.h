// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tolvane::backend {

/// The colours and logos, the same for all customers. A logo's URL that begins with a slash is
/// relative to the base URL.
struct Branding
{
    /// A JSON object.
    std::string json;
    /// The object's field of the same name.
    std::string updatedAt;
};

/// Throws a SettingsError. Adds `updatedAt` if it is missing.
Branding parseBranding(std::string_view json);

/// Parses a branding that an agent has edited; replaces its `updatedAt`. Throws a SettingsError.
Branding parseEditedBranding(std::string_view json, const std::string &baseUrl);

/// The JSON object with the logos' URLs made absolute for this base URL.
std::string brandingJson(const std::string &baseUrl, const Branding &branding);

} // namespace tolvane::backend
