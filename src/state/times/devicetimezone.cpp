// SPDX-License-Identifier: MIT
#include "state/times/devicetimezone.h"

#include "platform/platform.h"

namespace tolvane {

QTimeZone deviceTimeZone()
{
    const QTimeZone zone(platform().device->timeZoneIdentifier().toUtf8());
    return zone.isValid() ? zone : QTimeZone::utc();
}

} // namespace tolvane
