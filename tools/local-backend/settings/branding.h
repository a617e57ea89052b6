// SPDX-License-Identifier: MIT
#pragma once

#include "base/jsonnode.h"

namespace tolvane::backend {

/// The colours and logos, the same for all customers: an object with the field `updatedAt`. A
/// logo's URL that begins with a slash is relative to the base URL.
using Branding = Json;

/// Throws an InputError. Adds `updatedAt` if it is missing.
Branding parseBranding(std::string_view text);

/// Parses a branding that an agent has edited; replaces its `updatedAt`. Throws an InputError.
Branding parseEditedBranding(std::string_view text, const std::string &baseUrl);

/// The branding with the logos' URLs made absolute for this base URL.
Json brandingJson(Branding branding, const std::string &baseUrl);

} // namespace tolvane::backend
