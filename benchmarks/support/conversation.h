// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"

#include <QtCore/QByteArray>

namespace tolvane::bench {

/// A conversation like those of customers: short and long messages of both sides, some with
/// Markdown, one in ten with a picture of its own.
TicketDto conversation(int messageCount);

/// The same as a backend sends it.
QByteArray conversationJson(int messageCount);

} // namespace tolvane::bench
