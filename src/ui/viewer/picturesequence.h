// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtQml/qqmlregistration.h>

namespace tolvane {

/// The pictures of a message in their order, and the one that is shown. Main thread.
class TOLVANE_VIEWS_AUTOTEST_EXPORT PictureSequence : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    /// URLs as received; invalid ones are left out.
    Q_PROPERTY(QStringList attachments READ attachments WRITE setAttachments NOTIFY changed)
    /// The first shown picture. If the attachments do not contain it, it is the only picture.
    Q_PROPERTY(QUrl first READ first WRITE setFirst NOTIFY changed)
    Q_PROPERTY(QUrl url READ url NOTIFY changed)
    Q_PROPERTY(int index READ index NOTIFY changed)
    Q_PROPERTY(int count READ count NOTIFY changed)

public:
    using QObject::QObject;

    const QStringList &attachments() const { return m_attachments; }
    void setAttachments(const QStringList &attachments);
    const QUrl &first() const { return m_first; }
    void setFirst(const QUrl &url);
    QUrl url() const { return urlAt(m_index); }
    int index() const { return m_index; }
    int count() const { return int(m_urls.size()); }

    /// Empty if the index is out of range.
    Q_INVOKABLE QUrl urlAt(int index) const { return m_urls.value(index); }
    Q_INVOKABLE bool canStep(int by) const { return m_index + by >= 0 && m_index + by < count(); }
    /// Does nothing if there is no such picture.
    Q_INVOKABLE void step(int by);

Q_SIGNALS:
    void changed();

private:
    void restart();

    QStringList m_attachments;
    QUrl m_first;
    QList<QUrl> m_urls;
    int m_index = 0;
};

} // namespace tolvane
