// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"

#include <string>

namespace tolvane::backend {

/// Writes the conversations of a seed (see readSeed()) into the database, as if they had taken
/// place. A customer who has conversations already keeps them as they are. Throws a StartError for
/// a file that is no good, which leaves the database untouched.
void plantSeed(const std::string &path, Database &database);

} // namespace tolvane::backend
