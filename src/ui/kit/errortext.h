// SPDX-License-Identifier: MIT
#pragma once

#include <tolvane/error.h>

#include <QtCore/QString>

namespace tolvane {

/// Why something failed, for the customer: in their language what went wrong on the way, else what
/// the error itself says.
QString errorText(const Error &error);

} // namespace tolvane
