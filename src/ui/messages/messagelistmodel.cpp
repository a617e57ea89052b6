// SPDX-License-Identifier: MIT
#include "ui/messages/messagelistmodel.h"

#include "ui/markdown/emoji.h"
#include "ui/messages/messagechunks.h"

#include <QtCore/QUrl>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <algorithm>
#include <utility>

namespace tolvane {

namespace {

bool hasNewMessage(const QList<MessageDto> &messages, const QList<MessageDto> &before)
{
    return !before.isEmpty() && messages.size() > before.size() &&
           messages.constLast().id != before.constLast().id &&
           !messagerow::isCustomer(messages.constLast());
}

/// For a row without a text, in microseconds.
constexpr int rowCost = 100;

QStringList attachmentsOf(const MessageRow &row)
{
    return row.isFirst ? row.message.attachments.value_or(QStringList()) : QStringList();
}

} // namespace

void MessageListModel::setMessages(const QList<MessageDto> &messages)
{
    // Copies share their data. Otherwise the lists usually begin with the same messages.
    const bool isCopy =
        messages.constData() == m_messages.constData() && messages.size() == m_messages.size();
    const qsizetype same = isCopy
                               ? messages.size()
                               : std::ranges::mismatch(messages, m_messages).in1 - messages.begin();
    if (same == messages.size() && same == m_messages.size())
        return;
    const QList<MessageDto> before = std::exchange(m_messages, messages);
    replaceAfter(firstRowOf(same),
                 messagerow::rowsOf(std::span(messages).subspan(std::size_t(same))));
    Q_EMIT messagesChanged();
    if (hasNewMessage(messages, before))
        Q_EMIT messageArrived(messagerow::description(messages.constLast()));
}

qsizetype MessageListModel::firstRowOf(qsizetype message) const
{
    qsizetype row = 0;
    for (; row < records().size(); ++row) {
        if (records().at(row).isFirst && message-- == 0)
            break;
    }
    return row;
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
