// SPDX-License-Identifier: MIT
#pragma once

#include "state/ticketdata.h"

#include <tolvane/tolvane.h>

#include <QtCore/QObject>
#include <QtCore/QSet>

#include <memory>

namespace tolvane::console {

class Terminal;

/// Formats one message, or one row of the list, for display.
QString messageText(const Terminal &terminal, const MessageDto &message);
QString rowText(const Terminal &terminal, int number, const TicketPreviewDto &row);

/// Formats a push, and how a host would present it, as one line.
QString pushText(const QVariantMap &payload, PresentationOptions options);

/// Prints a conversation, and then each change to it.
class Conversation final : public QObject
{
    Q_OBJECT

public:
    Conversation(Terminal &terminal, std::shared_ptr<TicketData> ticket);

    TicketData &ticket() const { return *m_ticket; }
    bool isClosed() const;

Q_SIGNALS:
    /// A message of another sender than the customer has arrived.
    void replied();
    void closed();

private:
    void showErrors();
    void showTicket();
    void showError(const ErrorPtr &error, ErrorPtr &shown);

    Terminal &m_terminal;
    std::shared_ptr<TicketData> m_ticket;
    QSet<QString> m_shownIds;
    ErrorPtr m_shownFetchError;
    ErrorPtr m_shownSendError;
    bool m_shownTyping = false;
    QString m_shownAssignee;
    QString m_shownState;
};

} // namespace tolvane::console
