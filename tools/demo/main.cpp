// SPDX-License-Identifier: MIT
// The shop of examples/quick. With --tour a robot operates it and saves screenshots.
#include "pushes.h"
#include "support.h"
#include "tour.h"

#include <tolvane/tolvane.h>

#include <QtCore/QCommandLineParser>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>

using namespace Qt::StringLiterals;

namespace {

const QCommandLineOption pushesOption(u"pushes"_s,
                                      u"Registers the device with this token, in hexadecimal "
                                      u"digits, and receives its pushes from the local backend."_s,
                                      u"token"_s);
const QCommandLineOption tourOption(u"tour"_s,
                                    u"Operates the shop and the messenger like a customer, and "
                                    u"saves screenshots in the folder."_s,
                                    u"folder"_s);
const QCommandLineOption briefOption(u"brief"_s,
                                     u"Limits the tour to one window size and appearance."_s);
const QCommandLineOption logOption(u"log"_s, u"Enables the library's log."_s);

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(u"tolvane-demo"_s);
    QGuiApplication::setApplicationVersion(u"1.4.0"_s);
    QCommandLineParser options;
    options.addOptions({pushesOption, tourOption, briefOption, logOption});
    options.addHelpOption();
    options.process(app);

    tolvane::Tolvane::enableLogging(options.isSet(logOption));
    tolvane::Tolvane::initialize(u"demo-key"_s);
    tolvane::Tolvane::refreshUnread();
    // A panel beside the products, in a window with room for it.
    tolvane::Tolvane::setPresentation(tolvane::Tolvane::Presentation::panel);
    Support support;
    const auto pushes = Pushes::listen(options.value(pushesOption), support);

    QQmlApplicationEngine engine;
    engine.setInitialProperties({{u"support"_s, QVariant::fromValue(&support)}});
    engine.load(u"qrc:/Shop.qml"_s);
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (!window)
        return EXIT_FAILURE;
    if (!options.isSet(tourOption))
        return QGuiApplication::exec();
    return takeTour(*window,
                    {options.value(tourOption), options.isSet(briefOption), pushes != nullptr});
}
