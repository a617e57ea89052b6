// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// The customer's folder for pictures, which may not exist; the home folder if the system has none.
QString picturesFolder();

} // namespace tolvane
