// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QObject>
#include <QtCore/QUrl>

namespace tolvane {

/// The attachment that the customer has chosen to view. Main thread.
class TOLVANE_PRIVATE_EXPORT MessageData : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QUrl selectedAttachment READ selectedAttachment WRITE setSelectedAttachment NOTIFY
                   selectedAttachmentChanged)

public:
    using QObject::QObject;

    /// Empty without a selection.
    const QUrl &selectedAttachment() const { return m_selectedAttachment; }
    /// An equal address has no effect.
    void setSelectedAttachment(const QUrl &url);

Q_SIGNALS:
    void selectedAttachmentChanged();

private:
    QUrl m_selectedAttachment;
};

} // namespace tolvane
