// SPDX-License-Identifier: MIT
// tolvane-panel-host SCENARIO: runs a scenario of the panel over a desktop host. Prints each
// measurement as a line "NAME: NUMBER".
#include "backend/wire/json.h"
#include "benchmarks/support/conversation.h"
#include "benchmarks/support/hostplatform.h"
#include "frames.h"
#include "runninghost.h"
#include "testing/replacements.h"
#include "testing/samplerecords.h"
#include "testing/ui/createitem.h"
#include "testing/waitfor.h"

#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QHash>
#include <QtGui/QGuiApplication>
#include <QtQuick/QQuickView>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <vector>

namespace {

using namespace tolvane;
using namespace tolvane::bench;
using namespace std::chrono_literals;

/// A table, with `isBusy` an endless animation, and with `texts` a plain list of bubbles in the
/// place of the panel.
constexpr const char *deskPage = R"(
    import QtQuick
    Rectangle {
        id: desk
        property bool isBusy
        property var texts: []
        property alias list: list
        GridView {
            anchors.fill: parent
            cellWidth: 200; cellHeight: 40
            model: 120
            delegate: Text { required property int index; text: "An order " + index }
        }
        Rectangle {
            width: 20; height: 20; radius: 4; color: "teal"
            NumberAnimation on x {
                running: desk.isBusy
                from: 0; to: 300; duration: 2000; loops: Animation.Infinite
            }
        }
        Rectangle {
            x: desk.width - 416; y: desk.height - 736; width: 400; height: 720
            visible: list.count > 0
            clip: true
            border.color: "silver"
            ListView {
                id: list
                anchors.fill: parent
                anchors.bottomMargin: 80
                model: desk.texts
                delegate: Item {
                    required property string modelData
                    width: 400; height: text.height + 60
                    Rectangle {
                        x: 16; width: 326; height: text.height + 32
                        radius: 16
                        color: "gainsboro"
                        Text {
                            id: text
                            x: 16; y: 16; width: 294
                            text: modelData; textFormat: Text.PlainText
                            wrapMode: Text.Wrap
                            font.pixelSize: 16
                        }
                    }
                    Text { x: 16; y: text.height + 40; text: "5 days ago"; font.pixelSize: 12 }
                }
            }
        }
    }
)";

void report(const char *name, double number)
{
    std::printf("%s: %f\n", name, number);
}

constexpr int messageCount = 1000;

QByteArray bodyFor(const UrlRequest &request)
{
    static const QByteArray ticket = conversationJson(messageCount);
    const QString path = request.url.path();
    if (path.endsWith(QLatin1String("/settings")))
        return json::encode(readableBranding());
    if (path.endsWith(QLatin1String("/tickets")))
        return test::encodeList(QList{test::makePreview()});
    return path.contains(QLatin1String("/ticket/")) ? ticket : QByteArray();
}

QQuickItem *findItem(QQuickItem *in, const char *type)
{
    if (!in || QByteArray(in->metaObject()->className()).startsWith(type))
        return in;
    for (QQuickItem *child : in->childItems()) {
        if (QQuickItem *found = findItem(child, type))
            return found;
    }
    return nullptr;
}

/// A desktop host in a window that has room for the panel.
class Desk
{
public:
    explicit Desk(Tolvane::Presentation presentation, const QVariantMap &properties = {})
        : m_platform(std::make_unique<WorkerSession>(bodyFor))
    {
        platform().preferences = std::make_unique<test::MemoryPreferences>();
        Tolvane::setPresentation(presentation);
        m_window.setResizeMode(QQuickView::SizeRootObjectToView);
        m_window.resize(1100, 800);
        m_window.setContent({}, nullptr,
                            test::createItem(*m_window.engine(), deskPage, properties).release());
        m_window.show();
        m_window.requestActivate();
        nextFrame(m_window);
        Tolvane::initialize(QStringLiteral("key"));
        test::settle();
        test::wait(500ms);
    }

    QQuickView &window() { return m_window; }

    QQuickItem *find(const char *type) { return findItem(m_window.contentItem(), type); }

    QQuickItem *waitFor(const char *type)
    {
        QQuickItem *item = nullptr;
        test::waitFor(QString::fromLatin1(type), [&] { return (item = find(type)) != nullptr; });
        return item;
    }

private:
    HostPlatform m_platform;
    QQuickView m_window;
};

/// Counts the frames of an idle host, without and with the panel.
void idling()
{
    constexpr int seconds = 3;
    Desk desk(Tolvane::Presentation::panel);
    std::atomic<int> frames = 0;
    QObject::connect(
        &desk.window(), &QQuickWindow::frameSwapped, &desk.window(), [&] { ++frames; },
        Qt::DirectConnection);
    const auto count = [&] {
        test::wait(2s);
        frames = 0;
        test::wait(std::chrono::seconds(seconds));
        return double(frames) / seconds;
    };
    const double before = count();
    Tolvane::open();
    desk.waitFor("TicketItem_");
    report("idle frames with the panel", count() - before);
}

/// Measures the processor time from opening to the first frame with the messenger, in either form
/// in turns.
void opening()
{
    constexpr int rounds = 12;
    Desk desk(Tolvane::Presentation::panel);
    for (int round = 0; round < rounds; ++round) {
        for (const auto &[presentation, name] :
             {std::pair(Tolvane::Presentation::panel, "opening the panel"),
              {Tolvane::Presentation::full, "opening the full form"}}) {
            Tolvane::setPresentation(presentation);
            const double before = processorTime();
            Tolvane::open();
            nextFrame(desk.window());
            const double time = processorTime() - before;
            if (round > 0) // The first opening loads the views.
                report(name, time);
            desk.waitFor("TicketItem_");
            test::wait(300ms);
            Tolvane::close();
            test::waitFor(QStringLiteral("the messenger to close"),
                          [&] { return !desk.find("TolvanePresentation_"); });
        }
    }
}

QStringList texts()
{
    QStringList texts;
    for (const MessageDto &message : conversation(messageCount).messages)
        texts += message.content;
    return texts;
}

/// What is in the panel's place.
enum class Place { empty, panel, plainList };

/// Measures the median frame of a host with an animation, while what is in the panel's place
/// scrolls by `step`: the processor time of the whole process, all threads of the renderer
/// included.
void framing(Place place, double step, const char *name)
{
    constexpr int frameCount = 300;
    qputenv("QSG_RENDER_LOOP", "basic");
    const bool isPlain = place == Place::plainList;
    Desk desk(Tolvane::Presentation::panel,
              {{QStringLiteral("isBusy"), true},
               {QStringLiteral("texts"), isPlain ? texts() : QStringList()}});
    FixedStepDriver driver(desk.window());
    auto *list = desk.window().rootObject()->property("list").value<QQuickItem *>();
    if (isPlain)
        QMetaObject::invokeMethod(list, "positionViewAtEnd");
    if (place == Place::panel) {
        Tolvane::openConversation(QStringLiteral("t1"));
        list = desk.waitFor("TicketMessageList_")->property("flickable").value<QQuickItem *>();
    }
    for (int frame = 0; frame < 60; ++frame)
        driver.frame();
    std::vector<double> frames;
    for (int frame = 0; frame < frameCount; ++frame) {
        list->setProperty("contentY", list->property("contentY").toReal() - step);
        frames.push_back(driver.frame());
    }
    std::ranges::nth_element(frames, frames.begin() + frameCount / 2);
    report(name, frames.at(frameCount / 2));
}

} // namespace

int main(int argc, char **argv)
{
    const QHash<QString, std::function<void()>> scenarios = {
        {QStringLiteral("idling"), idling},
        {QStringLiteral("opening"), opening},
        {QStringLiteral("alone"), [] { framing(Place::empty, 0, "host's frame alone"); }},
        {QStringLiteral("still"),
         [] { framing(Place::panel, 0, "host's frame with a still panel"); }},
        {QStringLiteral("scrolling"),
         [] { framing(Place::panel, 12, "host's frame with a scrolled panel"); }},
        {QStringLiteral("plain"),
         [] { framing(Place::plainList, 12, "host's frame with a scrolled list"); }},
    };
    const QGuiApplication app(argc, argv);
    const auto scenario = scenarios.constFind(QString::fromLatin1(argc > 1 ? argv[1] : ""));
    if (scenario == scenarios.cend())
        qFatal("usage: tolvane-panel-host SCENARIO");
    (*scenario)();
    return 0;
}
