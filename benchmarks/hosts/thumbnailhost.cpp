// SPDX-License-Identifier: MIT
// tolvane-thumbnail-host [plain]: scrolls through a thousand pictures in a window. Prints the
// processor time of the main thread for each, in ms, and the peak memory of the process, in MiB.
// With "plain" it shows rectangles instead of the pictures, for comparison.
#include "benchmarks/support/hostplatform.h"
#include "benchmarks/support/photo.h"
#include "benchmarks/support/resourceusage.h"
#include "testing/ui/createitem.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
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

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication app(argc, argv);
    const bench::HostPlatform installed(std::make_unique<bench::WorkerSession>(
        [photo = bench::photo({2400, 1800})](const UrlRequest &) { return photo; }));
    qml_register_types_Tolvane_Private();

    QQuickView view;
    const bool isPlain = argc > 1 && qstrcmp(argv[1], "plain") == 0;
    QQuickItem *grid =
        test::createItem(*view.engine(), page, {{QStringLiteral("isPlain"), isPlain}}).release();
    view.setContent({}, nullptr, grid);
    view.show();

    // Scrolls by one row at a pace that the workers keep up with.
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
