// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"

#include <QtCore/QByteArray>

namespace tolvane::bench {

/// A ticket of that many messages as a backend would send it; 10,000 are some 2.7 MB.
QByteArray ticketJson(int messageCount);

} // namespace tolvane::bench
