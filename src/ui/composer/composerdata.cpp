// SPDX-License-Identifier: MIT
#include "ui/composer/composerdata.h"

#include "analytics/manager.h"
#include "base/ulid.h"
#include "platform/async/awaitfuture.h"
#include "platform/logger.h"
#include "platform/platform.h"
#include "recovery/messagesender.h"
#include "ui/attachments/hostpicture.h"
#include "ui/attachments/imagefiles.h"
#include "ui/composer/longlines.h"
#include "ui/loadingstate/errortext.h"

#include <QtCore/QBuffer>
#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtQuick/QQuickItem>

namespace tolvane {

namespace {

/// An attachment with a generated name, for a picture that does not come from a file.
AttachmentDto makeAttachment(const QString &mimeType, const QByteArray &bytes)
{
    return {.name = ULID::generate(platform().clock->now()).description(),
            .mimeType = mimeType,
            .data = bytes};
}

QByteArray encodedAsPng(const QImage &image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes;
}

/// The picture in the clipboard as the other application encoded it; absent if its format is not
/// one that browsers show.
std::optional<AttachmentDto> encodedPicture(const QMimeData &clipboard)
{
    for (const char *type : {"image/png", "image/jpeg", "image/webp", "image/gif"}) {
        const QString format = QString::fromLatin1(type);
        if (!clipboard.hasFormat(format))
            continue;
        const QByteArray bytes = clipboard.data(format);
        if (!imagefiles::pictureType(bytes).isEmpty())
            return makeAttachment(format, bytes);
    }
    return std::nullopt;
}

} // namespace

ComposerData::ComposerData(std::shared_ptr<TicketData> store, QObject *parent)
    : QObject(parent)
    , m_store(std::move(store))
    , m_sender(std::make_shared<MessageSender>(m_store))
    , m_isSendDisabled(m_store->isSendDisabled())
{
    const TicketData *source = m_store.get();
    connect(source, &TicketData::messageChanged, this, &ComposerData::messageChanged);
    connect(source, &TicketData::attachmentsChanged, this,
            [this] { m_attachments.setAttachments(m_store->attachments()); });
    connect(source, &TicketData::busyChanged, this, &ComposerData::busyChanged);
    for (const auto change :
         {&TicketData::messageChanged, &TicketData::attachmentsChanged, &TicketData::busyChanged})
        connect(source, change, this, &ComposerData::updateIsSendDisabled);
    for (const auto change : {&TicketData::messageChanged, &TicketData::attachmentsChanged})
        connect(source, change, this, [this] { setSendError(nullptr); });
    connect(source, &TicketData::busyChanged, this, &ComposerData::flushPending);
    m_attachments.setAttachments(m_store->attachments());
}

QString ComposerData::divided(const QString &text)
{
    const QString result = withDividedLines(text);
    if (result.size() != text.size())
        Q_EMIT linesDivided();
    return result;
}

void ComposerData::setMessage(const QString &message)
{
    m_store->setMessage(divided(message));
}

QString ComposerData::dividedClipboardText()
{
    const QString text = QGuiApplication::clipboard()->text();
    const QString result = divided(text);
    return result.size() == text.size() ? QString() : result;
}

void ComposerData::updateIsSendDisabled()
{
    const bool isDisabled = m_isSending || m_store->isSendDisabled();
    if (std::exchange(m_isSendDisabled, isDisabled) != isDisabled)
        Q_EMIT isSendDisabledChanged();
}

QStringList ComposerData::imagePatterns() const
{
    return imagefiles::patterns();
}

void ComposerData::send()
{
    if (isSendDisabled())
        return;
    TolvaneAnalyticsManager::shared().trackUserAction(
        QStringLiteral("send_button_tapped"), QStringLiteral("ticket"),
        {{QStringLiteral("has_message"), !m_store->message().isEmpty()},
         {TolvaneAnalyticsEvent::PropertyKeys::attachmentCount, m_store->attachments().size()}});
    detach(sendAndConfirm());
}

QCoro::Task<> ComposerData::sendAndConfirm()
{
    const QPointer self(this);
    setSendError(nullptr);
    setSending(true);
    const ErrorPtr error = co_await m_sender->send();
    if (!self)
        co_return;
    setSending(false);
    setSendError(error);
}

void ComposerData::setSending(bool isSending)
{
    m_isSending = isSending;
    updateIsSendDisabled();
    Q_EMIT busyChanged();
    flushPending();
}

void ComposerData::setSendError(const ErrorPtr &error)
{
    const QString text = error ? errorText(*error) : QString();
    if (std::exchange(m_sendErrorText, text) != text)
        Q_EMIT sendErrorTextChanged();
}

void ComposerData::addFiles(const QList<QUrl> &files)
{
    for (const QUrl &file : files)
        detach(add(platform().workers->run([file] { return imagefiles::read(file); })));
}

bool ComposerData::canDrop(const QList<QUrl> &urls) const
{
    return !isSendingMessage() && !imagefiles::imageFilesIn(urls).isEmpty();
}

void ComposerData::drop(const QList<QUrl> &urls)
{
    addFiles(imagefiles::filesIn(urls));
}

bool ComposerData::pasteImages()
{
    const QMimeData *clipboard = QGuiApplication::clipboard()->mimeData();
    return clipboard && pasteFrom(*clipboard);
}

bool ComposerData::pasteFrom(const QMimeData &clipboard)
{
    // Before the check for a text: file managers also copy the paths as a text.
    if (const QList<QUrl> files = imagefiles::filesIn(clipboard.urls()); !files.isEmpty()) {
        addFiles(files);
        return true;
    }
    // Applications often copy tables and formatted text together with a picture of them.
    if (clipboard.hasText())
        return false;
    if (const auto picture = encodedPicture(clipboard)) {
        m_pending += *picture;
        flushPending();
        return true;
    }
    const auto image = clipboard.imageData().value<QImage>();
    if (image.isNull())
        return false;
    addImage(image);
    return true;
}

void ComposerData::addImage(const QImage &image)
{
    detach(add(platform().workers->run([image]() -> Attachment {
        return makeAttachment(QStringLiteral("image/png"), encodedAsPng(image));
    })));
}

void ComposerData::attachHostWindow(QQuickItem *view)
{
    const QImage picture = view ? hostpicture::grab(*view) : QImage();
    if (picture.isNull())
        Logger::shared().log(LogLevel::error,
                             QStringLiteral("Can't draw the host's window into a picture"));
    else
        addImage(picture);
}

QCoro::Task<> ComposerData::add(QFuture<Attachment> read)
{
    const QPointer<ComposerData> self(this);
    Attachment attachment;
    try {
        attachment = co_await awaitFuture(read);
    } catch (...) {
        attachment = {}; // Logged below.
    }
    if (!attachment) {
        Logger::shared().log(
            LogLevel::error,
            QStringLiteral("A picked file is not attached: it can't be read or is not a picture"));
    }
    if (!self)
        co_return;
    if (!attachment) {
        Q_EMIT self->refused();
        co_return;
    }
    self->m_pending += *attachment;
    self->flushPending();
}

void ComposerData::flushPending()
{
    if (m_pending.isEmpty() || isSendingMessage())
        return;
    m_store->setAttachments(m_store->attachments() + std::exchange(m_pending, {}));
}

void ComposerData::removeAttachment(int row)
{
    if (row < 0 || row >= m_attachments.rowCount())
        return;
    QList<AttachmentDto> attachments = m_store->attachments();
    attachments.removeOne(m_attachments.attachment(row));
    m_store->setAttachments(attachments);
}

void ComposerData::logPickerError(const QString &reason)
{
    Logger::shared().log(LogLevel::error,
                         QStringLiteral("Can't open the image picker: %1").arg(reason.trimmed()));
}

} // namespace tolvane
