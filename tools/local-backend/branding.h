// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace tolvane::backend {

/// What all customers see. Addresses of logos that begin with a slash are below the base address.
struct Branding
{
    /// An object.
    std::string json;
    /// Its field of that name.
    std::string updatedAt;
};

/// Throws a SettingsError. Without an `updatedAt` the branding gets one.
Branding parseBranding(std::string_view json);

/// As an agent has edited it: with an `updatedAt` of its own. Throws a SettingsError.
Branding editedBranding(std::string_view json, const std::string &baseUrl);

/// The object for a client that knows the backend by this base address.
std::string brandingAt(const std::string &baseUrl, const Branding &branding);

} // namespace tolvane::backend
