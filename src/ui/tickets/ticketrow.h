// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QString>

/// What a row of the ticket list says. Main thread.
namespace tolvane::ticketrow {

/// "closed", "ai", "picture" or "person": who is on the other side.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString icon(const TicketPreviewDto &ticket);

/// The text on one line, whatever line ends are in it.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString singleLine(const QString &text);

/// Who wrote last, and how long ago.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString caption(const MessageDto &message);

/// The customer's own messages never are.
TOLVANE_VIEWS_AUTOTEST_EXPORT bool isUnread(const MessageDto &message);

/// All of the row as one text, for those who hear it.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString description(const TicketPreviewDto &ticket);

} // namespace tolvane::ticketrow
