// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

/// The broadcasts that unrelated parts of the library talk by.
namespace tolvane::notifications {

/// A message arrived, by push or by polling; the dictionary is a MessageDto.
inline const QString didReceiveMessage = QStringLiteral("didReceiveMessage");
/// A ticket changed; the dictionary is a TicketPreviewDto.
inline const QString didReceiveStateUpdate = QStringLiteral("didReceiveStateUpdate");
/// The messenger was shown or has gone: the entry "open" tells which.
inline const QString didChangeState = QStringLiteral("didChangeState");
/// The customer's message has reached the backend: "ticketId", "message" (the text for a new
/// ticket, a MessageDto for a reply) and, for a reply, "messageId".
inline const QString didSendMessage = QStringLiteral("didSendMessage");

} // namespace tolvane::notifications
