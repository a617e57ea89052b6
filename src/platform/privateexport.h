// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/export.h>

/// What the library of views uses of the one beneath it. Both come from one build and are installed
/// together: nothing marked so is for hosts, and it may change with every release.
#define TOLVANE_PRIVATE_EXPORT TOLVANE_EXPORT
