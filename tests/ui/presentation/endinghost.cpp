// SPDX-License-Identifier: MIT
#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QRasterWindow>
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

} // namespace

/// Opens the messenger, and ends the process in the way that the first argument names, some
/// milliseconds after the messenger has appeared. Hosts with "raster" as the third argument have a
/// window without Qt Quick.
int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    const QByteArray way = argv[1];
    std::unique_ptr<QWindow> window;
    if (QByteArrayView(argv[3]) == "raster")
        window = std::make_unique<QRasterWindow>();
    else
        window = std::make_unique<QQuickWindow>();
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
