// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "state/ticketdata.h"
#include "ui/composer/attachmentlistmodel.h"

#include <QCoroTask>
#include <QtCore/QFuture>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

class QMimeData;

namespace tolvane {

/// What is being written in a conversation, for QML, and what its buttons do. Main thread.
///
/// Files are read on the workers, all at once, and become attachments as they arrive, also after
/// the one who picked them has gone on. What arrives while a message goes out waits until that is
/// done: it is not part of that message, and would go with it otherwise.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ComposerData : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made over the store of a conversation")
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged)
    /// Rows with `name` and `picture`, those that can be shown.
    Q_PROPERTY(QAbstractItemModel *attachments READ attachments CONSTANT)
    Q_PROPERTY(bool isFetchingTicket READ isFetchingTicket NOTIFY changed)
    Q_PROPERTY(bool isSendingMessage READ isSendingMessage NOTIFY changed)
    Q_PROPERTY(bool isSendDisabled READ isSendDisabled NOTIFY changed)
    /// What pictures are called, for a picker to filter by: "*.png" and others.
    Q_PROPERTY(QStringList imagePatterns READ imagePatterns CONSTANT)

public:
    explicit ComposerData(std::shared_ptr<TicketData> store, QObject *parent = nullptr);

    QString message() const { return m_store->message(); }
    void setMessage(const QString &message) { m_store->setMessage(message); }
    QAbstractItemModel *attachments() { return &m_attachments; }
    bool isFetchingTicket() const { return m_store->isFetchingTicket(); }
    bool isSendingMessage() const { return m_store->isSendingMessage(); }
    bool isSendDisabled() const { return m_store->isSendDisabled(); }
    QStringList imagePatterns() const;

    /// Sends what is there, unless sending is disabled.
    Q_INVOKABLE void send();
    /// Attaches files that were picked. What can't be read is left out.
    Q_INVOKABLE void addFiles(const QList<QUrl> &files);
    /// Whether any of what hovers over the conversation would be taken.
    Q_INVOKABLE bool takes(const QList<QUrl> &urls) const;
    /// Attaches the image files among what was dropped.
    Q_INVOKABLE void drop(const QList<QUrl> &urls);
    /// Attaches the picture or the image files in the clipboard. False where there are none, or
    /// where a text stands beside a picture and is what was meant.
    Q_INVOKABLE bool pasteImages();
    /// Removes the attachment of a row.
    Q_INVOKABLE void removeAttachment(int row);
    /// There is no picker to open on this system; for the log.
    Q_INVOKABLE void pickerIsMissing(const QString &reason);

Q_SIGNALS:
    void messageChanged();
    void changed();

private:
    using Attachment = std::optional<AttachmentDto>;

    void takeOver();
    bool pasteFrom(const QMimeData &clipboard);
    QCoro::Task<> add(QFuture<Attachment> read);
    void deliver();

    const std::shared_ptr<TicketData> m_store;
    QString m_lastMessage;
    AttachmentListModel m_attachments;
    QList<AttachmentDto> m_arrived;
};

} // namespace tolvane
