// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"
#include "recovery/messagesender.h"
#include "state/ticketdata.h"
#include "ui/attachments/attachmentlistmodel.h"

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

/// The draft of a conversation and the composer's actions, for QML. Main thread.
///
/// Files are read on the workers in parallel. Each becomes an attachment as soon as it has been
/// read. If a message is being sent at that time, the attachment waits until it has been sent:
/// otherwise it would be cleared together with the draft.
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
    /// The reason for which the last message was not sent, in the customer's language. Empty after
    /// a success, and after a change of the draft.
    Q_PROPERTY(QString sendErrorText READ sendErrorText NOTIFY sendErrorTextChanged)
    /// File name patterns of pictures for the filter of a picker, such as "*.png".
    Q_PROPERTY(QStringList imagePatterns READ imagePatterns CONSTANT)

public:
    explicit ComposerData(std::shared_ptr<TicketData> store, QObject *parent = nullptr);

    QString message() const { return m_store->message(); }
    /// Divides lines that are too long for the editor.
    void setMessage(const QString &message);
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
    /// True if dropping these URLs would attach at least one of them.
    Q_INVOKABLE bool canDrop(const QList<QUrl> &urls) const;
    /// Attaches the files among the dropped URLs.
    Q_INVOKABLE void drop(const QList<QUrl> &urls);
    /// Attaches the picture or the image files in the clipboard, and refuses other files. Returns
    /// false if the clipboard has neither, or if it has a picture together with a text: then the
    /// text should be pasted.
    Q_INVOKABLE bool pasteImages();
    /// The text in the clipboard, with its lines divided; empty if no line is too long for the
    /// editor.
    Q_INVOKABLE QString dividedClipboardText();
    /// Attaches a picture of the host's window, if it can be drawn.
    Q_INVOKABLE void attachHostWindow(QQuickItem *view);
    /// Removes the attachment of a row.
    Q_INVOKABLE void removeAttachment(int row);
    /// Logs that the picker cannot be opened.
    Q_INVOKABLE void logPickerError(const QString &reason);

Q_SIGNALS:
    void messageChanged();
    void busyChanged();
    void isSendDisabledChanged();
    /// A file is not attached, because it is not a picture or cannot be read.
    void refused();
    /// A text had lines that were too long for the editor.
    void linesDivided();
    void sendErrorTextChanged();

private:
    using Attachment = std::optional<AttachmentDto>;

    QString divided(const QString &text);
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
