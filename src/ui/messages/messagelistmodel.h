// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/kit/recordlistmodel.h"
#include "ui/markdown/inlinemarkdown.h"
#include "ui/messages/messagerow.h"

namespace tolvane {

/// The messages of a ticket as rows, in the ticket's order. Expensive data, such as the formatted
/// text, are computed when a row is asked for them. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT MessageListModel final : public RecordListModel<MessageRow>
{
    Q_OBJECT

public:
    enum Role {
        isCustomerRole = Qt::UserRole + 1,
        /// An Avatar::Kind.
        avatarRole,
        pictureRole,
        /// A FormattedText.
        contentRole,
        captionRole,
        /// URLs, as received; empty for all but the message's first row.
        attachmentsRole,
        /// All of the message in one sentence, for screen readers; empty for all but the message's
        /// first row.
        descriptionRole,
        /// A message that is too long for one row has several.
        isFirstRole,
        isLastRole,
        /// Equal for rows whose items have the same structure.
        kindRole,
        /// The time that a row takes to be laid out, in microseconds.
        costRole,
    };

    using RecordListModel::RecordListModel;

    /// Returns at once if the list is an implicitly shared copy of the previous one.
    void setMessages(const QList<MessageDto> &messages);

    /// Makes views read the ages in the rows again, after time has passed.
    Q_INVOKABLE void refreshAges();

    /// Copies the text of the row's message to the clipboard, as it was written.
    Q_INVOKABLE void copy(int row) const;

    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// The list has changed. Emitted after the signals for all of its rows.
    void messagesChanged();
    /// Somebody other than the customer has added a message to a list that was not empty.
    void messageArrived(const QString &description);

private:
    /// The number of rows if there is no such message.
    qsizetype firstRowOf(qsizetype message) const;
    const FormattedText &formatted(const QString &source) const;

    QList<MessageDto> m_messages;
    /// The last result is kept, as views read the roles of a row one after another.
    mutable QString m_formattedSource;
    mutable FormattedText m_formatted;
};

} // namespace tolvane
