// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane::soak {

/// Runs a host without a window that writes its preferences continually, until it is killed.
int runWriter();

/// Starts a writer on the preferences of this process, and kills it while it writes. Both use the
/// same customer.
void killWriter();

/// The customer's id in the preferences' file.
QString customerOnDisk();

} // namespace tolvane::soak
