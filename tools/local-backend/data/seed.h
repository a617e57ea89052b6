// SPDX-License-Identifier: MIT
#pragma once

#include "data/database.h"

#include <string>

namespace tolvane::backend {

/// Adds the conversations of a seed (see readSeed()) to the database, unless the customer has
/// conversations already. Throws a StartError for an invalid file; the database then stays
/// unchanged.
void loadSeed(const std::string &path, Database &database);

} // namespace tolvane::backend
