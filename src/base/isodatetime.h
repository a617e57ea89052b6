// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QDateTime>
#include <QtCore/QString>

namespace tolvane {

enum class IsoZone {
    BasicOffset, ///< "+0200"
    Any,         ///< "+0200", "+02:00" or "Z"
};

/// The moment of a "yyyy-MM-ddTHH:mm:ss" with a zone, in UTC; invalid for any other text.
///
/// QDateTime::fromString() accepts more formats, and its limits of the offset differ between
/// versions of Qt.
TOLVANE_AUTOTEST_EXPORT QDateTime isoDateTime(const QString &text, IsoZone zone);

} // namespace tolvane
