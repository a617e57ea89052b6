// SPDX-License-Identifier: MIT
#pragma once

#include "database.h"

namespace tolvane::backend {

inline constexpr const char *inMemory = ":memory:";

/// Opens the database, which is made when it is not there. Throws a StartError when the file is
/// another program's, damaged, newer than this backend, or cannot be written.
Database openDatabase(const std::string &path);

} // namespace tolvane::backend
