// SPDX-License-Identifier: MIT
#include "ui/presentation/safemargins.h"

#include <utility>

namespace tolvane {

void SafeMargins::setWindow(QQuickWindow *window)
{
    if (m_window == window)
        return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 9, 0)
    if (m_window)
        m_window->disconnect(this);
    if (window)
        connect(window, &QWindow::safeAreaMarginsChanged, this, &SafeMargins::setMargins);
    m_margins = window ? window->safeAreaMargins() : QMargins();
#endif
    m_window = window;
    Q_EMIT changed();
}

void SafeMargins::setMargins(const QMargins &margins)
{
    if (std::exchange(m_margins, margins) != margins)
        Q_EMIT changed();
}

} // namespace tolvane
