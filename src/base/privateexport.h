// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/export.h>

/// Symbols of the core that the library of views uses. Both libraries come from one build and are
/// installed together. Hosts must not use these symbols; they may change with every release.
#define TOLVANE_PRIVATE_EXPORT TOLVANE_EXPORT

/// Internals that the tests, benchmarks and tools of this project use. Only developer builds export
/// them.
#ifdef TOLVANE_DEVELOPER_BUILD
#define TOLVANE_AUTOTEST_EXPORT TOLVANE_EXPORT
#define TOLVANE_VIEWS_AUTOTEST_EXPORT TOLVANE_VIEWS_EXPORT
#else
#define TOLVANE_AUTOTEST_EXPORT
#define TOLVANE_VIEWS_AUTOTEST_EXPORT
#endif
