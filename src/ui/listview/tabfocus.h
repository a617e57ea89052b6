// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QFocusEvent>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// Detects that an item gets the focus by the Tab key. QML alone cannot distinguish this from a
/// press. Main thread.
class TabFocus : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *item READ item WRITE setItem NOTIFY itemChanged)

public:
    using QObject::QObject;

    QQuickItem *item() const { return m_item; }
    void setItem(QQuickItem *item)
    {
        if (m_item == item)
            return;
        if (m_item)
            m_item->removeEventFilter(this);
        m_item = item;
        if (m_item)
            m_item->installEventFilter(this);
        Q_EMIT itemChanged();
    }

Q_SIGNALS:
    void itemChanged();
    void entered();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn) {
            const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
            if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
                Q_EMIT entered();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QPointer<QQuickItem> m_item;
};

} // namespace tolvane
