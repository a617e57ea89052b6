// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/tolvane.h>

/// What the facade does with the host's pushes, once it has made sure that it may. Main thread.
namespace tolvane::pushrouting {

bool isOurs(const QVariantMap &payload);
void registerDevice(const QByteArray &deviceToken);
TOLVANE_AUTOTEST_EXPORT PresentationOptions willPresent(const QVariantMap &payload);
TOLVANE_AUTOTEST_EXPORT void handle(const QVariantMap &payload);

} // namespace tolvane::pushrouting
