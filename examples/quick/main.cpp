// SPDX-License-Identifier: MIT
// A host application with a "Help" button.
#include "pushclient.h"
#include "support.h"
#include "tour.h"

#include <tolvane/tolvane.h>

#include <QtCore/QCommandLineParser>
#include <QtGui/QGuiApplication>
#include <QtQml/QQmlApplicationEngine>
#include <QtQuick/QQuickWindow>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QCommandLineOption pushes(u"pushes"_s,
                                u"Registers the device of that token, in hexadecimal digits, and "
                                u"listens for its pushes at the local backend."_s,
                                u"token"_s);
const QCommandLineOption
    tour(u"tour"_s, u"Goes through it all as a person does, and leaves pictures."_s, u"folder"_s);
const QCommandLineOption brief(u"brief"_s, u"The tour in one size and colour only."_s);

/// The local backend stands in for the platform's push service; without one there are no pushes.
std::unique_ptr<PushClient> registerDevice(const QString &token, Support &support)
{
    const QString backend = qEnvironmentVariable("TOLVANE_API_URL");
    if (token.isEmpty() || backend.isEmpty())
        return nullptr;
    tolvane::Tolvane::setDeviceToken(QByteArray::fromHex(token.toLatin1()));
    auto client = std::make_unique<PushClient>(QUrl(backend + u"/push/"_s + token));
    QObject::connect(client.get(), &PushClient::pushed, &support, &Support::receive);
    return client;
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(u"tolvane-quick-host"_s);
    QGuiApplication::setApplicationVersion(u"1.4.0"_s);
    QCommandLineParser options;
    options.addOptions({pushes, tour, brief});
    options.addHelpOption();
    options.process(app);

    tolvane::Tolvane::initialize(u"demo-key"_s);
    Support support;
    const auto client = registerDevice(options.value(pushes), support);

    QQmlApplicationEngine engine;
    engine.setInitialProperties({{u"support"_s, QVariant::fromValue(&support)}});
    engine.load(u"qrc:/Shop.qml"_s);
    auto *window = qobject_cast<QQuickWindow *>(engine.rootObjects().value(0));
    if (!window)
        return EXIT_FAILURE;
    if (!options.isSet(tour))
        return QGuiApplication::exec();
    return takeTour(*window, {options.value(tour), options.isSet(brief), client != nullptr});
}
