// SPDX-License-Identifier: MIT
// tolvane-quick-host [TOKEN]: a shop with a "Help" button that opens the messenger. TOKEN is the
// device's push token in hexadecimal digits.
#include "pushes.h"
#include "support.h"

#include <tolvane/tolvane.h>

#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(u"tolvane-quick-host"_s);
    QGuiApplication::setApplicationVersion(u"1.4.0"_s);

    tolvane::Tolvane::initialize(u"demo-key"_s);
    tolvane::Tolvane::refreshUnread(); // For the badge of the button.
    // A panel beside the products, in a window with room for it.
    tolvane::Tolvane::setPresentation(tolvane::Tolvane::Presentation::panel);
    Support support;
    const auto pushes = Pushes::listen(QGuiApplication::arguments().value(1), support);

    QQmlApplicationEngine engine;
    engine.setInitialProperties({{u"support"_s, QVariant::fromValue(&support)}});
    engine.load(u"qrc:/Shop.qml"_s);
    return engine.rootObjects().isEmpty() ? EXIT_FAILURE : QGuiApplication::exec();
}
