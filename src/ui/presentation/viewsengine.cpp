// SPDX-License-Identifier: MIT
#include "ui/presentation/viewsengine.h"

#include <QtCore/QPointer>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlEngine>

extern void qml_register_types_Tolvane_Private();

namespace tolvane {

namespace {

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
        qml_register_types_Tolvane_Private();
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
