// SPDX-License-Identifier: MIT
// Scrolls through a thousand pictures in a window, then tells the main thread's time and the peak
// of the process's memory. With "plain", rectangles take the place of the pictures, for comparison.
#include "benchmarks/support/measures.h"
#include "benchmarks/support/photo.h"
#include "platform/platform.h"

#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickItem>
#include <QtQuick/QQuickView>

#include <cstdio>

extern void qml_register_types_Tolvane_Private();

namespace {

using namespace tolvane;

constexpr const char *page = R"(
    import QtQuick
    import Tolvane.Private
    GridView {
        id: grid
        property bool isPlain
        property int ready: 0
        width: 560; height: 840
        cellWidth: 140; cellHeight: 140
        model: 1000
        delegate: Item {
            id: cell
            required property int index
            width: 138; height: 138
            Loader {
                anchors.fill: parent
                sourceComponent: grid.isPlain ? plain : picture
            }
            Component {
                id: plain
                Rectangle { color: "gray"; Component.onCompleted: ++grid.ready }
            }
            Component {
                id: picture
                ThumbnailAsyncImage {
                    url: "https://cdn.example/" + cell.index + ".jpg"
                    thumbnailSize: Qt.size(138, 138)
                    placeholder: Rectangle { color: "gray" }
                    content: RoundedImage {
                        fillMode: RoundedImage.Fill
                        radius: 10
                        Component.onCompleted: ++grid.ready
                    }
                }
            }
        }
    }
)";

/// Answers each request with bytes of its own, as a network would.
class PhotoSession final : public UrlSession
{
public:
    QFuture<UrlResponse> send(std::function<UrlRequest()>) override
    {
        return platform().workers->run([this] {
            return UrlResponse{.status = 200,
                               .headers = {},
                               .body = QByteArray(m_photo.constData(), m_photo.size())};
        });
    }

private:
    const QByteArray m_photo = bench::photo({2400, 1800});
};

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    const QTemporaryDir caches;
    auto installed = std::make_unique<Platform>(makeProductionPlatform());
    installed->urlSession = std::make_unique<PhotoSession>();
    installed->makeUrlCache = [&](UrlCache::Settings settings) {
        settings.diskPath = caches.filePath(settings.diskPath);
        return makeUrlCache(settings);
    };
    exchangePlatform(std::move(installed));
    qml_register_types_Tolvane_Private();

    QQuickView view;
    QQmlComponent component(view.engine());
    component.setData(page, QUrl());
    auto *grid = qobject_cast<QQuickItem *>(component.createWithInitialProperties(
        {{QStringLiteral("isPlain"), argc > 1 && qstrcmp(argv[1], "plain") == 0}}));
    if (!grid)
        qFatal("%s", qPrintable(component.errorString()));
    view.setContent({}, nullptr, grid);
    view.show();

    // A row further at a pace that the workers keep up with.
    const double before = bench::threadMilliseconds();
    int row = 0;
    QTimer step;
    QObject::connect(&step, &QTimer::timeout, [&] {
        if (grid->property("ready").toInt() < qMin(1000, (row + 6) * 4))
            return;
        if (++row > 1000 / 4 - 6)
            QGuiApplication::quit();
        else
            grid->setProperty("contentY", row * 140);
    });
    step.start(40);
    QGuiApplication::exec();
    std::printf("%f %f\n", (bench::threadMilliseconds() - before) / 1000, bench::peakMebibytes());
    return 0;
}
