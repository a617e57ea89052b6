// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "ui/kit/recordlistmodel.h"
#include "ui/markdown/inlinemarkdown.h"
#include "ui/messages/messagerow.h"

namespace tolvane {

/// The messages of a ticket as rows, in the ticket's order. What takes time, such as the styled
/// text, is made as a row is asked for it. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT MessageListModel final : public RecordListModel<MessageRow>
{
    Q_OBJECT

public:
    enum Role {
        isCustomerRole = Qt::UserRole + 1,
        /// "picture", "person", "ai" or "none"
        avatarRole,
        pictureRole,
        /// A StyledText.
        contentRole,
        captionRole,
        /// Addresses, as they came; none for any but the message's first row.
        attachmentsRole,
        /// All of the message in one sentence, for screen readers.
        descriptionRole,
        /// A message that is too long for one row has several.
        isFirstRole,
        isLastRole,
        /// What rows have in common whose items are built alike.
        kindRole,
    };

    using RecordListModel::RecordListModel;

    /// The same list again costs next to nothing if it is a copy of the one before.
    void setMessages(const QList<MessageDto> &messages);

    /// Time has passed: what the rows say of their age is to be asked for anew.
    Q_INVOKABLE void refreshAges();

    /// Puts the text of the row's message on the clipboard, as it was written.
    Q_INVOKABLE void copy(int row) const;

    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// The list is another than before, after all of its rows have been told of.
    void messagesChanged();
    /// Somebody other than the customer has written, while there was a list.
    void messageArrived(const QString &description);

private:
    /// The number of rows where there is no such message.
    qsizetype firstRowOf(qsizetype message) const;
    const StyledText &styled(const QString &source) const;

    QList<MessageDto> m_messages;
    /// What was asked for last: the roles of a row are asked for one after another.
    mutable QString m_styledSource;
    mutable StyledText m_styled;
};

} // namespace tolvane
