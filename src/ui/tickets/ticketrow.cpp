// SPDX-License-Identifier: MIT
#include "ui/tickets/ticketrow.h"

#include "platform/platform.h"
#include "recovery/drafts.h"
#include "state/times/timeago.h"
#include "state/unreadtickets.h"
#include "ui/kit/isolatedtext.h"
#include "ui/markdown/inlinemarkdown.h"

#include <QtCore/QStringList>

namespace tolvane::ticketrow {

namespace {

QString senderLabel(const SenderDto &sender)
{
    if (sender.type == words::customer)
        return platform().bundle->string(QStringLiteral("main_sender_customer_name"));
    if (sender.type == words::humanAgent && sender.name)
        return *sender.name;
    return sender.type;
}

QString draftText()
{
    return platform().bundle->string(QStringLiteral("ticket_draft"));
}

} // namespace

Avatar::Kind icon(const TicketPreviewDto &ticket)
{
    const SenderDto &sender = ticket.lastMessage.sender;
    if (ticket.state == words::closed)
        return Avatar::Closed;
    if (sender.type == words::aiAgent)
        return Avatar::AI;
    return sender.profilePicture ? Avatar::Picture : Avatar::Person;
}

QString singleLine(const QString &text)
{
    // The view shows only the beginning, but would lay out the whole text.
    constexpr qsizetype maximumLength = 500;
    return withoutMarkdown(text.left(maximumLength)).simplified();
}

QString caption(const TicketPreviewDto &ticket)
{
    const MessageDto &message = ticket.lastMessage;
    QStringList parts = {isolatedText(senderLabel(message.sender)), timeAgoText(message.timestamp)};
    if (Drafts::shared()->contains(ticket.id))
        parts.prepend(draftText());
    return parts.join(QStringLiteral(" \u00b7 "));
}

QString description(const TicketPreviewDto &ticket)
{
    QStringList parts = {isolatedText(senderLabel(ticket.lastMessage.sender)),
                         singleLine(ticket.lastMessage.content),
                         spokenTimeAgoText(ticket.lastMessage.timestamp)};
    if (Drafts::shared()->contains(ticket.id))
        parts.prepend(draftText());
    const Bundle &bundle = *platform().bundle;
    if (ticket.state == words::closed)
        parts += bundle.string(QStringLiteral("ticket_closed"));
    if (isUnread(ticket.lastMessage))
        parts += bundle.string(QStringLiteral("accessibility_unread"));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace tolvane::ticketrow
