// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "ui/images/avatar.h"

#include <QtCore/QString>

/// The texts of a row of the ticket list. Main thread.
namespace tolvane::ticketrow {

/// The icon for the other side of the conversation; never Avatar::None.
TOLVANE_VIEWS_AUTOTEST_EXPORT Avatar::Kind icon(const TicketPreviewDto &ticket);

/// The beginning of the text as one line, without Markdown, with spaces instead of line breaks.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString singleLine(const QString &text);

/// The sender and the age of the message, preceded by "Draft" if the ticket has a draft.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString caption(const TicketPreviewDto &ticket);

/// The whole row as one text, for screen readers.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString description(const TicketPreviewDto &ticket);

} // namespace tolvane::ticketrow
