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

struct DerivedRows final : DerivedMessages
{
    QList<MessageRow> rows;
    ListSteps steps;
};

QStringList attachmentsOf(const MessageRow &row)
{
    return row.isFirst ? row.message.attachments.value_or(QStringList()) : QStringList();
}

} // namespace

std::shared_ptr<DerivedMessages> MessageListModel::derive(const QList<MessageDto> &before,
                                                          const QList<MessageDto> &after)
{
    auto derived = std::make_shared<DerivedRows>();
    derived->rows = messagerow::rowsOf(after);
    derived->steps = listUpdate(messagerow::rowsOf(before), derived->rows).steps;
    return derived;
}

bool MessageListModel::fits(const DerivedMessages *derived, std::optional<int> generation) const
{
    return derived && derived->after.generation == generation && derived->before.count == m_count &&
           (m_count == 0 || derived->before.generation == m_generation);
}

void MessageListModel::setMessages(const QList<MessageDto> &messages, std::optional<int> generation,
                                   const DerivedMessages *derived)
{
    const QString lastId = m_count > 0 ? records().constLast().message.id : QString();
    const qsizetype countBefore = m_count;
    bool isChanged = false;
    if (fits(derived, generation)) {
        const auto &fitting = static_cast<const DerivedRows &>(*derived);
        isChanged = apply(fitting.rows, fitting.steps);
        m_count = derived->after.count;
    } else if (!generation || m_generation != generation) {
        isChanged = replace(messagerow::rowsOf(messages));
        m_count = messages.size();
    }
    m_generation = generation;
    append(messagerow::rowsOf(std::span(messages).subspan(std::size_t(m_count))));
    isChanged = isChanged || m_count < messages.size();
    m_count = messages.size();
    if (!isChanged)
        return;
    Q_EMIT messagesChanged();
    if (countBefore > 0 && m_count > countBefore && messages.constLast().id != lastId &&
        !messagerow::isCustomer(messages.constLast()))
        Q_EMIT messageArrived(messagerow::description(messages.constLast()));
}

void MessageListModel::refreshAges()
{
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {captionRole, descriptionRole});
}

void MessageListModel::copy(int row) const
{
    if (row >= 0 && row < rowCount())
        QGuiApplication::clipboard()->setText(record(row).message.content);
}

QVariant MessageListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MessageRow &row = record(index.row());
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
