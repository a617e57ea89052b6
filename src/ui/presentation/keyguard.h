// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

class QKeyEvent;
class QQuickItem;
class QQuickWindow;

namespace tolvane {

class ScreenData;

/// Keeps the keys that the messenger uses from the shortcuts of the host while the messenger has
/// the focus: the keys that move, press and close, and in a conversation those that write. All
/// others remain shortcuts of the host. Main thread.
class KeyGuard final : public QObject
{
public:
    KeyGuard(QQuickItem &view, ScreenData &screen);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void watch(QQuickWindow *window);
    bool hasFocus() const;
    bool isUsed(const QKeyEvent &event) const;

    QQuickItem &m_view;
    ScreenData &m_screen;
    QPointer<QQuickWindow> m_window;
};

} // namespace tolvane
