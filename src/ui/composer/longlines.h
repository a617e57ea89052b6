// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

namespace tolvane {

/// Inserts line breaks into lines of more than 20,000 characters, after spaces if possible. After
/// each key, Qt lays out the whole line with the cursor, which would take a second for a megabyte.
/// The result shares the text's data if there is no such line.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString withDividedLines(const QString &text);

} // namespace tolvane
