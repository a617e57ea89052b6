// SPDX-License-Identifier: MIT
#include "ui/attachments/attachmentlistmodel.h"

#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "ui/images/decoding.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>

#include <algorithm>

namespace tolvane {

namespace {

constexpr int thumbnailSide = 150;

/// True if both have the same name and implicitly share their bytes. Comparing the bytes would take
/// too long after each change of the draft.
bool isSame(const AttachmentDto &one, const AttachmentDto &other)
{
    return one.name == other.name && one.mimeType == other.mimeType &&
           one.data.size() == other.data.size() && one.data.constData() == other.data.constData();
}

bool contains(const QList<AttachmentDto> &list, const AttachmentDto &attachment)
{
    return std::ranges::any_of(
        list, [&attachment](const AttachmentDto &other) { return isSame(attachment, other); });
}

QSize thumbnailSize()
{
    // For the screen with the highest ratio: the window may move to another screen.
    const int side = qCeil(thumbnailSide * qGuiApp->devicePixelRatio());
    return {side, side};
}

} // namespace

void AttachmentListModel::setAttachments(const QList<AttachmentDto> &attachments)
{
    // Implicitly shared copies are equal.
    if (attachments.size() == m_attachments.size() &&
        attachments.constData() == m_attachments.constData())
        return;
    m_attachments = attachments;
    removeMissing();
    qsizetype row = 0;
    for (const AttachmentDto &attachment : attachments) {
        if (contains(m_undecodable, attachment))
            continue;
        insertOrMove(attachment, row);
        // Decoding may have failed immediately, and removed the row.
        if (!contains(m_undecodable, attachment))
            ++row;
    }
}

void AttachmentListModel::removeMissing()
{
    m_undecodable.removeIf(
        [this](const AttachmentDto &attachment) { return !contains(m_attachments, attachment); });
    for (qsizetype row = m_rows.size() - 1; row >= 0; --row) {
        if (!contains(m_attachments, m_rows[row].attachment))
            remove(row);
    }
}

qsizetype AttachmentListModel::indexOf(const AttachmentDto &attachment) const
{
    const auto found = std::ranges::find_if(
        m_rows, [&attachment](const Row &row) { return isSame(row.attachment, attachment); });
    return found == m_rows.end() ? -1 : found - m_rows.begin();
}

void AttachmentListModel::remove(qsizetype row)
{
    beginRemoveRows({}, int(row), int(row));
    m_rows.removeAt(row);
    endRemoveRows();
}

void AttachmentListModel::insertOrMove(const AttachmentDto &attachment, qsizetype row)
{
    const qsizetype old = indexOf(attachment);
    if (old == row)
        return;
    if (old > row) {
        beginMoveRows({}, int(old), int(old), {}, int(row));
        m_rows.move(old, row);
        endMoveRows();
        return;
    }
    beginInsertRows({}, int(row), int(row));
    m_rows.insert(row, {.attachment = attachment, .picture = {}});
    endInsertRows();
    detach(decode(attachment));
}

QCoro::Task<> AttachmentListModel::decode(AttachmentDto attachment)
{
    const QPointer<AttachmentListModel> self(this);
    QImage picture;
    try {
        QFuture<QImage> decoded =
            platform().pictureWorkers->run([bytes = attachment.data, size = thumbnailSize()] {
                return images::decodedThumbnail(bytes, size);
            });
        picture = co_await awaitFuture(decoded);
    } catch (...) {
        picture = {}; // Treated as undecodable.
    }
    if (self)
        self->setPicture(attachment, picture);
}

void AttachmentListModel::setPicture(const AttachmentDto &attachment, const QImage &picture)
{
    const qsizetype row = indexOf(attachment);
    if (row < 0)
        return;
    if (picture.isNull()) {
        m_undecodable += attachment;
        remove(row);
        return;
    }
    m_rows[row].picture = picture;
    Q_EMIT dataChanged(index(int(row)), index(int(row)), {pictureRole});
}

int AttachmentListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant AttachmentListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Row &row = m_rows[index.row()];
    switch (role) {
    case nameRole:
        return row.attachment.name;
    case pictureRole:
        return row.picture;
    default:
        return {};
    }
}

QHash<int, QByteArray> AttachmentListModel::roleNames() const
{
    return {{nameRole, "name"}, {pictureRole, "picture"}};
}

} // namespace tolvane
