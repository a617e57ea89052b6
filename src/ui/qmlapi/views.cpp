// SPDX-License-Identifier: MIT
#include "platform/system/userinterface.h"
#include "ui/presentation/viewcontroller.h"
#include "ui/qmlapi/messengeritem.h"

#include <tolvane/views.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtQml/qqmlextensionplugin.h>

extern void qml_register_types_Tolvane();
extern void qml_register_types_Tolvane_Private();

// Types and resources of a static library are not linked unless something refers to them. Outside
// of namespaces, as Q_INIT_RESOURCE requires.
static void linkModules()
{
    [[maybe_unused]] void (*const volatile registrations[])() = {
        qml_register_types_Tolvane, qml_register_types_Tolvane_Private};
    Q_INIT_RESOURCE(qmake_Tolvane);
    Q_INIT_RESOURCE(TolvaneQmlApi_raw_qml_0);
    Q_INIT_RESOURCE(qmake_Tolvane_Private);
    Q_INIT_RESOURCE(TolvaneViews_raw_qml_0);
    Q_INIT_RESOURCE(tolvane_icons);
    Q_INIT_RESOURCE(tolvane_shaders);
#ifdef TOLVANE_COMPILED_QML
    Q_INIT_RESOURCE(qmlcache_TolvaneQmlApi);
    Q_INIT_RESOURCE(qmlcache_TolvaneViews);
#endif
}

namespace tolvane {

namespace {

QSizeF screenSize()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? QSizeF(screen->size()) : QSizeF(0, 0);
}

} // namespace

QQuickItem *createMessengerItem()
{
    return new MessengerItem;
}

} // namespace tolvane

// Called by the header `tolvane/views.h` when the library is loaded.
bool TolvaneSdkViews()
{
    linkModules();
    tolvane::registerUserInterface({.present = tolvane::TolvaneViewController::present,
                                    .dismiss = tolvane::TolvaneViewController::dismiss,
                                    .screenSize = tolvane::screenSize});
    return true;
}
