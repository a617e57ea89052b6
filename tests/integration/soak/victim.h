// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace tolvane::soak {

/// A host without a window that writes its preferences all the time, until it is killed.
int runVictim();

/// Starts one beside this process, on the same preferences, and kills it while it writes. The
/// customer of this process and theirs are one and the same.
void killAVictim();

/// The id that the preferences' file has for the customer.
QString customerOnDisk();

} // namespace tolvane::soak
