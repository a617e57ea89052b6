// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane {

/// The customer's folder for pictures, which may not exist. The home folder on a system without
/// such a folder.
QString picturesFolder();

} // namespace tolvane
