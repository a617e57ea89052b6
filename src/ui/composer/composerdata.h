// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "recovery/messagesender.h"
#include "state/ticketdata.h"
#include "ui/composer/attachmentlistmodel.h"

#include <QCoroTask>
#include <QtCore/QFuture>
#include <QtCore/QObject>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

#include <memory>
#include <optional>

class QMimeData;
class QImage;

namespace tolvane {

/// The message being composed in a conversation, for QML, and the composer's actions. Main thread.
///
/// Files are read on the workers in parallel. Each becomes an attachment when it has been read,
/// however long after it was picked. A file that is read while a message is being sent is attached
/// afterwards: it is not part of that message, and would be cleared with it otherwise.
class TOLVANE_VIEWS_AUTOTEST_EXPORT ComposerData : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("created for the store of a conversation")
    Q_PROPERTY(QString message READ message WRITE setMessage NOTIFY messageChanged)
    /// Rows with `name` and `picture`, for the attachments that can be shown.
    Q_PROPERTY(QAbstractItemModel *attachments READ attachments CONSTANT)
    Q_PROPERTY(bool isFetchingTicket READ isFetchingTicket NOTIFY busyChanged)
    Q_PROPERTY(bool isSendingMessage READ isSendingMessage NOTIFY busyChanged)
    Q_PROPERTY(bool isSendDisabled READ isSendDisabled NOTIFY isSendDisabledChanged)
    /// Why the last message was not sent, in the customer's language. Empty after a success and
    /// once the draft changes.
    Q_PROPERTY(QString sendErrorText READ sendErrorText NOTIFY sendErrorTextChanged)
    /// File name patterns of pictures, for the filter of a picker: "*.png" and others.
    Q_PROPERTY(QStringList imagePatterns READ imagePatterns CONSTANT)

public:
    explicit ComposerData(std::shared_ptr<TicketData> store, QObject *parent = nullptr);

    QString message() const { return m_store->message(); }
    void setMessage(const QString &message) { m_store->setMessage(message); }
    QAbstractItemModel *attachments() { return &m_attachments; }
    bool isFetchingTicket() const { return m_store->isFetchingTicket(); }
    bool isSendingMessage() const { return m_isSending || m_store->isSendingMessage(); }
    bool isSendDisabled() const { return m_isSendDisabled; }
    QStringList imagePatterns() const;
    QString sendErrorText() const { return m_sendErrorText; }

    /// See MessageSender::setKnownTicketIds().
    Q_INVOKABLE void setKnownTicketIds(const QStringList &ids) { m_sender->setKnownTicketIds(ids); }

    /// Sends the message, unless sending is disabled. If the response is lost, looks for the
    /// message at the backend before it reports a failure.
    Q_INVOKABLE void send();
    /// Attaches files. Refuses unreadable files and files that are not pictures.
    Q_INVOKABLE void addFiles(const QList<QUrl> &files);
    /// Whether a drop of these URLs would attach any of them.
    Q_INVOKABLE bool canDrop(const QList<QUrl> &urls) const;
    /// Attaches the files among the dropped URLs.
    Q_INVOKABLE void drop(const QList<QUrl> &urls);
    /// Attaches the picture or the image files in the clipboard, and refuses files of other kinds.
    /// False if it has neither, or if it also has a text, which should be pasted instead of the
    /// picture.
    Q_INVOKABLE bool pasteImages();
    /// Attaches a picture of the host's window, if it can be drawn.
    Q_INVOKABLE void attachHostWindow(QQuickItem *view);
    /// Removes the attachment of a row.
    Q_INVOKABLE void removeAttachment(int row);
    /// Logs that no picker can be opened on this system.
    Q_INVOKABLE void logPickerError(const QString &reason);

Q_SIGNALS:
    void messageChanged();
    void busyChanged();
    void isSendDisabledChanged();
    /// A file is not attached, because it is not a picture or cannot be read.
    void refused();
    void sendErrorTextChanged();

private:
    using Attachment = std::optional<AttachmentDto>;

    void updateIsSendDisabled();
    QCoro::Task<> sendAndConfirm();
    void setSending(bool isSending);
    void setSendError(const ErrorPtr &error);
    bool pasteFrom(const QMimeData &clipboard);
    void addImage(const QImage &image);
    QCoro::Task<> add(QFuture<Attachment> read);
    void flushPending();

    const std::shared_ptr<TicketData> m_store;
    const std::shared_ptr<MessageSender> m_sender;
    bool m_isSending = false;
    bool m_isSendDisabled = true;
    QString m_sendErrorText;
    AttachmentListModel m_attachments;
    QList<AttachmentDto> m_pending;
};

} // namespace tolvane
