// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>

namespace tolvane {

/// The text with line breaks in lines of more than 20,000 characters, after spaces where possible.
/// With each key, Qt lays out the whole line with the cursor: a line of a megabyte would take a
/// second. The result shares the text's data if there is no such line.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString withDividedLines(const QString &text);

} // namespace tolvane
