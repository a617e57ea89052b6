// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantMap>

/// The operations of the facade that lead to a conversation. Main thread.
namespace tolvane::conversations {

/// Opens the messenger with the conversation.
void open(const QString &ticketId);
/// Opens the messenger with a new conversation, and the text in its composer.
void openNew(const QString &text);
/// Makes the messenger show the conversation of a push when it is open, or else when it opens.
/// Pushes of other services and pushes without a conversation have no effect.
void requestFor(const QVariantMap &push);

} // namespace tolvane::conversations
