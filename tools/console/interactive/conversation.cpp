// SPDX-License-Identifier: MIT
#include "interactive/conversation.h"

#include "base/isodatetime.h"
#include "io/terminal.h"

#include <QtCore/QDateTime>

#include <map>

namespace tolvane::console {

namespace {

const QString closedState = QStringLiteral("closed");

QString senderName(const SenderDto &sender)
{
    if (sender.type == words::customer)
        return QStringLiteral("You");
    const QString name = sender.name.value_or(sender.type);
    return sender.type == words::aiAgent ? name + QStringLiteral(" (AI)") : name;
}

const char *senderStyle(const SenderDto &sender)
{
    if (sender.type == words::customer)
        return "1;34";
    return sender.type == words::aiAgent ? "1;35" : "1;32";
}

QString clockTime(const QString &timestamp)
{
    const QDateTime time = isoDateTime(timestamp, IsoZone::Any);
    return time.isValid() ? time.toLocalTime().toString(QStringLiteral("HH:mm"))
                          : QStringLiteral("--:--");
}

QString onOneLine(const QString &text)
{
    constexpr qsizetype maximumSize = 60;
    const QString line = text.simplified();
    return line.size() > maximumSize ? line.left(maximumSize - 1) + QChar(0x2026) : line;
}

QVariantMap mapAt(const QVariantMap &map, const QString &key)
{
    return map.value(key).toMap();
}

QString textAt(const QVariantMap &map, const QString &key)
{
    return map.value(key).toString();
}

QString pushedText(const QVariantMap &payload)
{
    const QVariantMap message = mapAt(payload, QStringLiteral("message"));
    if (message.isEmpty()) {
        const QVariantMap preview = mapAt(payload, QStringLiteral("ticketPreview"));
        return QStringLiteral("the conversation is ") + textAt(preview, QStringLiteral("state"));
    }
    const QVariantMap sender = mapAt(message, QStringLiteral("sender"));
    return textAt(sender, QStringLiteral("name")) + QLatin1String(": ") +
           onOneLine(textAt(message, QStringLiteral("content")));
}

} // namespace

QString messageText(const Terminal &terminal, const MessageDto &message)
{
    QString text = terminal.styled("2", clockTime(message.timestamp)) + QLatin1String("  ") +
                   terminal.styled(senderStyle(message.sender), senderName(message.sender));
    const QString indent = QStringLiteral("\n       ");
    if (!message.content.isEmpty())
        text += indent + QString(message.content).replace(QLatin1Char('\n'), indent);
    for (const QString &url : message.attachments.value_or(QList<QString>()))
        text += indent + terminal.styled("2", QStringLiteral("📎 ") + url);
    return text;
}

QString rowText(const Terminal &terminal, int number, const TicketPreviewDto &row)
{
    const bool isUnread = !row.lastMessage.isRead && row.lastMessage.sender.type != words::customer;
    return QStringLiteral("%1 %2  %3  %4: %5")
        .arg(isUnread ? QStringLiteral("●") : QStringLiteral(" "))
        .arg(number, 2)
        .arg(terminal.styled("2", row.state), senderName(row.lastMessage.sender),
             onOneLine(row.lastMessage.content));
}

QString pushText(const QVariantMap &payload, PresentationOptions options)
{
    static const std::map<PresentationOptions, QString> presentations = {
        {PresentationOptions::none, QStringLiteral("not shown")},
        {PresentationOptions::sound, QStringLiteral("sound")},
        {PresentationOptions::soundAndBanner, QStringLiteral("sound and banner")},
    };
    return QStringLiteral("🔔 push, %1: %2").arg(presentations.at(options), pushedText(payload));
}

Conversation::Conversation(Terminal &terminal, std::shared_ptr<TicketData> ticket)
    : m_terminal(terminal)
    , m_ticket(std::move(ticket))
{
    connect(m_ticket.get(), &TicketData::errorsChanged, this, &Conversation::showErrors);
    connect(m_ticket.get(), &TicketData::ticketChanged, this, &Conversation::showTicket);
}

bool Conversation::isClosed() const
{
    return m_ticket->ticket() && m_ticket->ticket()->state == closedState;
}

void Conversation::showError(const ErrorPtr &error, ErrorPtr &shown)
{
    if (std::exchange(shown, error) != error && error)
        m_terminal.print(
            m_terminal.styled("31", QStringLiteral("! ") + error->localizedDescription()));
}

void Conversation::showErrors()
{
    showError(m_ticket->fetchError(), m_shownFetchError);
    showError(m_ticket->sendError(), m_shownSendError);
}

void Conversation::showTicket()
{
    if (!m_ticket->ticket())
        return;
    const TicketDto ticket = *m_ticket->ticket();
    bool isReply = false;
    for (const MessageDto &message : ticket.messages) {
        if (m_shownIds.contains(message.id))
            continue;
        m_shownIds.insert(message.id);
        m_terminal.print(messageText(m_terminal, message));
        isReply = message.sender.type != words::customer;
    }
    if (std::exchange(m_shownAssignee, ticket.assignee) != ticket.assignee) {
        m_terminal.print(m_terminal.styled(
            "2", QStringLiteral("       — assigned to: %1 —").arg(ticket.assignee)));
    }
    if (std::exchange(m_shownTyping, m_ticket->isAITyping()) != m_ticket->isAITyping() &&
        m_shownTyping)
        m_terminal.print(m_terminal.styled("2", QStringLiteral("       …")));
    const bool wasClosed = std::exchange(m_shownState, ticket.state) == closedState;
    if (isClosed() && !wasClosed) {
        m_terminal.print(m_terminal.styled("2", QStringLiteral("       — closed —")));
        Q_EMIT closed();
    }
    if (isReply)
        Q_EMIT replied();
}

} // namespace tolvane::console
