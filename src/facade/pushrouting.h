// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <tolvane/tolvane.h>

/// The push operations of the facade, after it has checked the thread and the initialisation. Main
/// thread, except isTolvanePush(), which is safe from any thread.
namespace tolvane::pushrouting {

bool isTolvanePush(const QVariantMap &payload);
void registerDevice(const QByteArray &deviceToken);
TOLVANE_AUTOTEST_EXPORT PresentationOptions willPresent(const QVariantMap &payload);
TOLVANE_AUTOTEST_EXPORT void handle(const QVariantMap &payload);

} // namespace tolvane::pushrouting
