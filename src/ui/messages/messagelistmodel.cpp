// SPDX-License-Identifier: MIT
#include "ui/messages/messagelistmodel.h"

#include "ui/markdown/emoji.h"
#include "ui/messages/messagechunks.h"

#include <QtCore/QUrl>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <span>
#include <utility>

namespace tolvane {

namespace {

/// For a row without a text, in microseconds.
constexpr int rowCost = 100;

QStringList attachmentsOf(const MessageRow &row)
{
    return row.isFirst ? row.message.attachments.value_or(QStringList()) : QStringList();
}

} // namespace

void MessageListModel::setMessages(const QList<MessageDto> &messages, std::optional<int> generation)
{
    const bool isContinued = generation && m_generation == generation;
    m_generation = generation;
    const Kept kept = isContinued ? Kept{m_count, records().size()} : keptOf(messages);
    if (kept.messages == messages.size() && kept.messages == m_count)
        return;
    const QString lastId = m_count > 0 ? records().constLast().message.id : QString();
    const qsizetype countBefore = std::exchange(m_count, messages.size());
    replaceAfter(kept.rows,
                 messagerow::rowsOf(std::span(messages).subspan(std::size_t(kept.messages))));
    Q_EMIT messagesChanged();
    if (countBefore > 0 && m_count > countBefore && messages.constLast().id != lastId &&
        !messagerow::isCustomer(messages.constLast()))
        Q_EMIT messageArrived(messagerow::description(messages.constLast()));
}

MessageListModel::Kept MessageListModel::keptOf(const QList<MessageDto> &messages) const
{
    Kept kept;
    while (kept.messages < messages.size() && kept.rows < records().size() &&
           records().at(kept.rows).message == messages.at(kept.messages)) {
        ++kept.messages;
        do
            ++kept.rows;
        while (kept.rows < records().size() && !records().at(kept.rows).isFirst);
    }
    return kept;
}

void MessageListModel::refreshAges()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {captionRole, descriptionRole});
}

void MessageListModel::copy(int row) const
{
    if (row >= 0 && row < rowCount())
        QGuiApplication::clipboard()->setText(records().at(row).message.content);
}

QVariant MessageListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MessageRow &row = records().at(index.row());
    const MessageDto &message = row.message;
    switch (role) {
    case isCustomerRole:
        return messagerow::isCustomer(message);
    case avatarRole:
        return messagerow::avatar(message.sender);
    case pictureRole:
        return QUrl(message.sender.profilePicture.value_or(QString()));
    case contentRole:
        return QVariant::fromValue(formatted(row.text));
    case captionRole:
        return messagerow::caption(message);
    case timestampRole:
        return message.timestamp;
    case attachmentsRole:
        return attachmentsOf(row);
    case descriptionRole:
        return row.isFirst ? messagerow::description(message) : QString();
    case isFirstRole:
        return row.isFirst;
    case isLastRole:
        return row.isLast;
    case kindRole:
        return QVariant::fromValue(QList<int>{messagerow::avatar(message.sender),
                                              formatted(row.text).isRich,
                                              !attachmentsOf(row).isEmpty()});
    case costRole:
        return rowCost + layoutCost(row.text);
    default:
        return {};
    }
}

const FormattedText &MessageListModel::formatted(const QString &source) const
{
    if (m_formattedSource != source) {
        m_formattedSource = source;
        m_formatted = inlineMarkdown(source, emojiFamily());
    }
    return m_formatted;
}

QHash<int, QByteArray> MessageListModel::roleNames() const
{
    static const QHash<int, QByteArray> names = {{isCustomerRole, "isCustomer"},
                                                 {avatarRole, "avatar"},
                                                 {pictureRole, "picture"},
                                                 {contentRole, "content"},
                                                 {captionRole, "caption"},
                                                 {timestampRole, "timestamp"},
                                                 {attachmentsRole, "attachments"},
                                                 {descriptionRole, "description"},
                                                 {isFirstRole, "isFirst"},
                                                 {isLastRole, "isLast"},
                                                 {kindRole, "kind"},
                                                 {costRole, "cost"}};
    return names;
}

} // namespace tolvane
