// SPDX-License-Identifier: MIT
#include "ui/conversation/messages/messagelistmodel.h"

#include "ui/conversation/messages/inlinemarkdown.h"

#include <QtCore/QUrl>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include <utility>

namespace tolvane {

namespace {

bool isNews(const QList<MessageDto> &messages, const QList<MessageDto> &before)
{
    return !before.isEmpty() && messages.size() > before.size() &&
           messages.constLast().id != before.constLast().id &&
           !messagerow::isCustomer(messages.constLast());
}

} // namespace

void MessageListModel::setMessages(const QList<MessageDto> &messages)
{
    const bool isSame =
        messages.constData() == m_messages.constData() && messages.size() == m_messages.size();
    if (isSame || messages == m_messages)
        return;
    const QList<MessageDto> before = std::exchange(m_messages, messages);
    replace(messagerow::rowsOf(messages));
    Q_EMIT messagesChanged();
    if (isNews(messages, before))
        Q_EMIT messageArrived(messagerow::description(messages.constLast()));
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
        return QVariant::fromValue(inlineMarkdown(row.text));
    case captionRole:
        return messagerow::caption(message);
    case attachmentsRole:
        return row.isFirst ? QStringList(message.attachments.value_or(QList<QString>()))
                           : QStringList();
    case descriptionRole:
        return messagerow::description(message);
    case isFirstRole:
        return row.isFirst;
    case isLastRole:
        return row.isLast;
    default:
        return {};
    }
}

QHash<int, QByteArray> MessageListModel::roleNames() const
{
    return {{isCustomerRole, "isCustomer"},
            {avatarRole, "avatar"},
            {pictureRole, "picture"},
            {contentRole, "content"},
            {captionRole, "caption"},
            {attachmentsRole, "attachments"},
            {descriptionRole, "description"},
            {isFirstRole, "isFirst"},
            {isLastRole, "isLast"}};
}

} // namespace tolvane
