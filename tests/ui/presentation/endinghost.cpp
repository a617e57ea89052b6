// SPDX-License-Identifier: MIT
#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QRasterWindow>
#include <QtQml/QQmlComponent>
#include <QtQml/QQmlEngine>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickWindow>

#include <cstdlib>
#include <functional>
#include <map>
#include <memory>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

constexpr int exitCode = 3;

struct EndingDelegate final : TolvaneAnalyticsDelegate
{
    void didReceiveEvent(const TolvaneAnalyticsEvent & /*event*/) override
    {
        if (end)
            end();
    }
    std::function<void()> end;
};

std::unique_ptr<QWindow> windowOf(QByteArrayView kind, QQmlEngine &engine)
{
    if (kind == "raster")
        return std::make_unique<QRasterWindow>();
    if (kind == "quick")
        return std::make_unique<QQuickWindow>();
    QQmlComponent component(&engine);
    // A type with properties of its own is a QQuickWindow for qobject_cast, even in ~QWindow.
    component.setData("import QtQuick; Window { property int number }", QUrl());
    return std::unique_ptr<QWindow>(qobject_cast<QWindow *>(component.create()));
}

} // namespace

/// Opens the messenger, and ends the process in the way that the first argument names, some
/// milliseconds after the messenger has appeared. The third argument is the kind of the window:
/// "raster" has no Qt Quick, "qml" is written in QML.
int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    const QByteArray way = argv[1];
    QQmlEngine engine;
    std::unique_ptr<QWindow> window = windowOf(argv[3], engine);
    window->resize(400, 600);
    window->show();
    const auto delegate = std::make_shared<EndingDelegate>();
    Tolvane::setAnalyticsDelegate(delegate);
    Tolvane::enableLogging(false);
    Tolvane::initialize(u"key"_s);
    const std::map<QByteArray, std::function<void()>> ways = {
        {"exit", [] { std::exit(exitCode); }},
        {"quick exit", [] { std::quick_exit(exitCode); }},
        {"return", [] { QCoreApplication::exit(exitCode); }},
        {"window first",
         [&window] {
             window.reset();
             std::exit(exitCode);
         }},
        {"moved item",
         [&window] {
             QQuickItem *item = createMessengerItem();
             item->setSize({400, 600});
             item->setParentItem(static_cast<QQuickWindow *>(window.get())->contentItem());
             QTimer::singleShot(200, item, [item] {
                 auto *other = new QQuickWindow;
                 other->resize(400, 600);
                 other->show();
                 item->setParentItem(other->contentItem());
             });
             QTimer::singleShot(600, [] { std::exit(exitCode); });
         }},
        {"closed already",
         [] {
             if (!Tolvane::isOpen())
                 std::exit(exitCode);
         }},
        {"close and exit",
         [] {
             Tolvane::close();
             std::exit(exitCode);
         }},
    };
    const auto end = [&] {
        if (way == "callback")
            delegate->end = ways.at("exit");
        else if (way == "callback, return")
            delegate->end = ways.at("return");
        else
            ways.at(way)();
        Tolvane::willPresentNotification({{u"source"_s, u"tolvane"_s}});
    };
    QTimer::singleShot(0, [&] {
        Tolvane::open();
        QTimer::singleShot(std::atoi(argv[2]), end);
    });
    return QCoreApplication::exec();
}
