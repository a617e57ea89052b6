// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// The names of the broadcasts between independent parts of the library. Their user info contains a
/// dictionary, and a record where one is named below.
namespace tolvane::notifications {

/// A message arrived, by push or by polling. Record: a MessageDto.
inline const QString didReceiveMessage = QStringLiteral("didReceiveMessage");
/// A ticket changed. Record: a TicketPreviewDto.
inline const QString didReceiveStateUpdate = QStringLiteral("didReceiveStateUpdate");
/// The messenger was opened or closed; the entry "open" has the new state.
inline const QString didChangeState = QStringLiteral("didChangeState");
/// The backend has accepted the customer's message. Entries: "ticketId", "message" (the text for a
/// new ticket, a MessageDto for a reply) and, for a reply, "messageId".
inline const QString didSendMessage = QStringLiteral("didSendMessage");

} // namespace tolvane::notifications
