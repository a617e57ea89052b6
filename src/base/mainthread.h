// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QThread>

namespace tolvane {

/// True on the thread of the application object.
inline bool isMainThread()
{
    const QCoreApplication *app = QCoreApplication::instance();
    return app && app->thread() == QThread::currentThread();
}

} // namespace tolvane
