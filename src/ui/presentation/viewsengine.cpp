// SPDX-License-Identifier: MIT
#include "ui/presentation/viewsengine.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>

extern void qml_register_types_Tolvane_Private();

namespace tolvane {

namespace {

/// Qt keeps each registration until the end of the process, also a repeated one.
void registerTypesOnce()
{
    static const bool isDone = (qml_register_types_Tolvane_Private(), true);
    Q_UNUSED(isDone)
}

QPointer<QQmlEngine> &currentEngine()
{
    static QPointer<QQmlEngine> engine;
    return engine;
}

} // namespace

QQmlEngine &viewsEngine()
{
    QPointer<QQmlEngine> &engine = currentEngine();
    if (!engine) {
        registerTypesOnce();
        engine = new QQmlEngine(qGuiApp);
        // Deletes the engine after all views, and before the platform.
        QObject::connect(qGuiApp, &QCoreApplication::aboutToQuit, engine, &QObject::deleteLater);
    }
    return *engine;
}

void deleteViewsEngine()
{
    delete currentEngine();
}

} // namespace tolvane
