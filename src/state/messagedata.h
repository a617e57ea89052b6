// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

namespace tolvane {

/// The attachment that the customer is viewing, and all attachments of its message. Main thread.
class TOLVANE_PRIVATE_EXPORT MessageData : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QUrl selectedAttachment READ selectedAttachment WRITE setSelectedAttachment NOTIFY
                   selectedAttachmentChanged)
    /// The URLs of the selected attachment's message, as received. Set them before the selection.
    Q_PROPERTY(QStringList attachments MEMBER attachments NOTIFY attachmentsChanged)

public:
    using QObject::QObject;

    /// Empty without a selection.
    const QUrl &selectedAttachment() const { return m_selectedAttachment; }
    /// An equal address has no effect.
    void setSelectedAttachment(const QUrl &url);

    QStringList attachments;

Q_SIGNALS:
    void selectedAttachmentChanged();
    void attachmentsChanged();

private:
    QUrl m_selectedAttachment;
};

} // namespace tolvane
