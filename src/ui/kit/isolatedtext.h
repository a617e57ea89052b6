// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// A name on one line, of a sensible length, that neither reorders what stands beside it nor
/// decides in which direction that is read. Empty where there is nothing of it to be seen.
QString isolatedText(const QString &name);

} // namespace tolvane
