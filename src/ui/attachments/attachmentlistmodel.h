// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QCoroTask>
#include <QtCore/QAbstractListModel>
#include <QtGui/QImage>

namespace tolvane {

/// The attachments of the draft, as rows with thumbnails. Each thumbnail is decoded once, on the
/// workers. Attachments that cannot be decoded have no row. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT AttachmentListModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum Role {
        nameRole = Qt::UserRole + 1,
        /// Null until it is decoded.
        pictureRole,
    };

    using QAbstractListModel::QAbstractListModel;

    /// Returns at once if the list is an implicitly shared copy of the previous one.
    void setAttachments(const QList<AttachmentDto> &attachments);
    const AttachmentDto &attachment(int row) const { return m_rows[row].attachment; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    struct Row
    {
        AttachmentDto attachment;
        QImage picture;
    };

    void removeMissing();
    qsizetype indexOf(const AttachmentDto &attachment) const;
    void remove(qsizetype row);
    void insertOrMove(const AttachmentDto &attachment, qsizetype row);
    QCoro::Task<> decode(AttachmentDto attachment);
    void setPicture(const AttachmentDto &attachment, const QImage &picture);

    QList<AttachmentDto> m_attachments;
    QList<AttachmentDto> m_undecodable;
    QList<Row> m_rows;
};

} // namespace tolvane
