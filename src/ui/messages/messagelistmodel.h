// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "state/ticketdata.h"
#include "ui/kit/recordlistmodel.h"
#include "ui/markdown/inlinemarkdown.h"
#include "ui/messages/messagerow.h"

#include <memory>
#include <optional>

namespace tolvane {

/// The messages of a ticket as rows, in the ticket's order. Expensive data, such as the formatted
/// text, are computed when a view reads them. Main thread.
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
        /// As received.
        timestampRole,
        /// URLs as received; empty except for the message's first row.
        attachmentsRole,
        /// The whole message as one text for screen readers; empty except for the message's first
        /// row.
        descriptionRole,
        /// The position of the row among those of its message.
        isFirstRole,
        isLastRole,
        /// Equal for rows whose items have the same structure.
        kindRole,
        /// An estimate of the time for the layout of the row, in microseconds.
        costRole,
    };

    using RecordListModel::RecordListModel;

    /// @param generation of the list: as long as it stays, messages have only been added at the
    ///     end, and the others are not compared. Without one all messages are compared.
    /// @param derived the result of derive() for this list; if it fits the rows, the messages are
    ///     not compared again
    void setMessages(const QList<MessageDto> &messages, std::optional<int> generation = {},
                     const DerivedMessages *derived = nullptr);

    /// The rows of a list, and the steps from those of the list before. Safe from any thread.
    static std::shared_ptr<DerivedMessages> derive(const QList<MessageDto> &before,
                                                   const QList<MessageDto> &after);

    /// Makes views read the ages of the messages again.
    Q_INVOKABLE void refreshAges();

    /// Copies the unformatted text of the row's message to the clipboard.
    Q_INVOKABLE void copy(int row) const;

    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    /// Emitted after the signals for the changed rows.
    void messagesChanged();
    /// Emitted when a list with messages receives a new one that the customer has not written.
    void messageArrived(const QString &description);

private:
    bool fits(const DerivedMessages *derived, std::optional<int> generation) const;
    const FormattedText &formatted(const QString &source) const;

    // Not the list itself: sharing it would make the store copy it to add a message.
    qsizetype m_count = 0;
    std::optional<int> m_generation;
    /// The result of the last formatted(): views read the roles of a row one after another.
    mutable QString m_formattedSource;
    mutable FormattedText m_formatted;
};

} // namespace tolvane
