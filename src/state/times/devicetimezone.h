// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QTimeZone>

namespace tolvane {

/// The device's current time zone; UTC if its name is unknown.
QTimeZone deviceTimeZone();

} // namespace tolvane
