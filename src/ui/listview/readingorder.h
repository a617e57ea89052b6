// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtQml/qqmlregistration.h>
#include <QtQuick/QQuickItem>

namespace tolvane {

/// Keeps the children of a ListView's content item in the order of their positions while a screen
/// reader runs. Screen readers go through them in the order of the items, which a ListView creates
/// in another one: a heading after its first row, and rows above the others last.
class ReadingOrder : public QObject, private QAccessible::ActivationObserver
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *content READ content WRITE setContent NOTIFY contentChanged)

public:
    explicit ReadingOrder(QObject *parent = nullptr);
    ~ReadingOrder() override;

    QQuickItem *content() const { return m_content; }
    void setContent(QQuickItem *content);

Q_SIGNALS:
    void contentChanged();

private:
    void accessibilityActiveChanged(bool isActive) override;
    /// After the list has placed its items.
    void sortLater();
    void sort();

    QPointer<QQuickItem> m_content;
    bool m_isActive = QAccessible::isActive();
    bool m_isWaiting = false;
};

} // namespace tolvane
