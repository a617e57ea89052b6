// SPDX-License-Identifier: MIT
#pragma once

#include "data/database.h"

namespace tolvane::backend {

inline constexpr const char *inMemory = ":memory:";

/// Opens the database, and creates it if necessary. Throws a StartError when the file belongs to
/// another program, is damaged, is newer than this backend, or cannot be written.
Database openDatabase(const std::string &path);

} // namespace tolvane::backend
