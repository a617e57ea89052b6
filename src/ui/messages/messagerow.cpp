// SPDX-License-Identifier: MIT
#include "ui/messages/messagerow.h"

#include "platform/platform.h"
#include "state/times/timeago.h"
#include "ui/kit/isolatedtext.h"
#include "ui/markdown/inlinemarkdown.h"
#include "ui/messages/messagechunks.h"

#include <QtCore/QStringList>

namespace tolvane::messagerow {

namespace {

QString senderLabel(const SenderDto &sender)
{
    const Bundle &bundle = *platform().bundle;
    if (sender.type == words::customer)
        return bundle.hostString(QStringLiteral("You"));
    const QString name = isolatedText(sender.name.value_or(QString()));
    if (!name.isEmpty())
        return name;
    return bundle.string(sender.type == words::aiAgent ? QStringLiteral("ticket_ai_agent")
                                                       : QStringLiteral("ticket_support"));
}

void addRows(QList<MessageRow> &rows, const MessageDto &message)
{
    const QStringList parts = splitIntoChunks(message.content);
    for (qsizetype part = 0; part < parts.size(); ++part) {
        const bool isFirst = part == 0;
        rows +=
            {.id = isFirst ? message.id : message.id + QLatin1Char('\n') + QString::number(part),
             .message = message,
             .text = parts.at(part),
             .isFirst = isFirst,
             .isLast = part == parts.size() - 1};
    }
}

} // namespace

QList<MessageRow> rowsOf(std::span<const MessageDto> messages)
{
    QList<MessageRow> rows;
    rows.reserve(qsizetype(messages.size()));
    for (const MessageDto &message : messages)
        addRows(rows, message);
    return rows;
}

bool isCustomer(const MessageDto &message)
{
    return message.sender.type == words::customer;
}

Avatar::Kind avatar(const SenderDto &sender)
{
    if (sender.type == words::aiAgent)
        return Avatar::AI;
    if (sender.type != words::humanAgent)
        return Avatar::None;
    return sender.profilePicture ? Avatar::Picture : Avatar::Person;
}

QString caption(const MessageDto &message)
{
    return timeAgoText(message.timestamp) + QStringLiteral(" \u00b7 ") +
           senderLabel(message.sender);
}

QString description(const MessageDto &message)
{
    // Assistive technologies copy the text several times, and would take minutes to read more.
    constexpr qsizetype longest = 2000;
    const QString text =
        withoutMarkdown(message.content.first(qMin(message.content.size(), longest)));
    QStringList parts = {senderLabel(message.sender), text, spokenTimeAgoText(message.timestamp)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

} // namespace tolvane::messagerow
