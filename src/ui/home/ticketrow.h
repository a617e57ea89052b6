// SPDX-License-Identifier: MIT
#pragma once

#include "backend/records.h"

#include <QtCore/QString>

/// What a row of the ticket list says. Main thread.
namespace tolvane::ticketrow {

/// "closed", "ai", "picture" or "person": who is on the other side.
QString icon(const TicketPreviewDto &ticket);

/// The text on one line, whatever line ends are in it.
QString singleLine(const QString &text);

/// Who wrote last, and how long ago.
QString caption(const MessageDto &message);

/// The customer's own messages never are.
bool isUnread(const MessageDto &message);

/// All of the row as one text, for those who hear it.
QString description(const TicketPreviewDto &ticket);

} // namespace tolvane::ticketrow
