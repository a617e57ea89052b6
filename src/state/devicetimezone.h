// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QTimeZone>

namespace tolvane {

/// Of the device, as it is now; UTC where it names one that is not known.
QTimeZone deviceTimeZone();

} // namespace tolvane
