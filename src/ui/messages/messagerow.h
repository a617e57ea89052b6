// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"
#include "ui/images/avatar.h"

#include <QtCore/QList>

#include <span>

namespace tolvane {

/// A row of the message list: a message, or a part of a message that is too long for one row.
struct MessageRow
{
    QString id;
    MessageDto message;
    /// The part of the message's text that the row shows.
    QString text;
    bool isFirst = true;
    bool isLast = true;

    bool operator==(const MessageRow &) const = default;
};

/// The texts of the rows. Main thread.
namespace messagerow {

/// Safe from any thread.
QList<MessageRow> rowsOf(std::span<const MessageDto> messages);

bool isCustomer(const MessageDto &message);

/// Avatar::None for the customer and for unknown senders.
Avatar::Kind avatar(const SenderDto &sender);

/// The message's age and its sender.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString caption(const MessageDto &message);

/// The whole message as one text, for screen readers.
TOLVANE_VIEWS_AUTOTEST_EXPORT QString description(const MessageDto &message);

} // namespace messagerow

} // namespace tolvane

Q_DECLARE_TYPEINFO(tolvane::MessageRow, Q_RELOCATABLE_TYPE);
