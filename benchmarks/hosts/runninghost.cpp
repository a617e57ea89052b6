// SPDX-License-Identifier: MIT
#include "runninghost.h"

#include "backend/wire/json.h"
#include "frames.h"
#include "testing/samplerecords.h"
#include "testing/ui/createitem.h"
#include "testing/waitfor.h"

namespace tolvane::bench {

namespace {

/// The host's own scene: a list of texts, and an endless animation.
constexpr const char *hostPage = R"(
    import QtQuick
    Rectangle {
        width: 400; height: 700
        ListView {
            anchors.fill: parent
            model: 20
            delegate: Text { required property int index; height: 40; text: "Row " + index }
        }
        Rectangle {
            width: 20; height: 20; radius: 4; color: "teal"
            NumberAnimation on x { from: 0; to: 300; duration: 2000; loops: Animation.Infinite }
        }
    }
)";

/// A minimal interface of the same kind: a header, rows with texts, a button.
constexpr const char *plainPage = R"(
    import QtQuick
    Rectangle {
        property alias list: list
        anchors.fill: parent
        z: 1
        Rectangle {
            width: parent.width; height: 80; color: "teal"
            Text { x: 16; y: 16; text: "Hi there"; color: "white"; font.pixelSize: 28; font.bold: true }
            Text { x: 16; y: 48; text: "How can we help?"; color: "white"; font.pixelSize: 28; font.bold: true }
        }
        ListView {
            id: list
            y: 80; width: parent.width; height: parent.height - y
            model: 10000
            clip: true
            delegate: Rectangle {
                required property int index
                width: 400; height: 84; color: "white"
                Rectangle { x: 16; width: parent.width - 32; height: 74; radius: 8; color: "gainsboro" }
                Text { x: 66; y: 16; width: 290; text: "The last message in conversation " + index; elide: Text.ElideRight; font.pixelSize: 16; font.weight: Font.DemiBold }
                Text { x: 66; y: 40; width: 290; text: "human agent · " + index + " minutes ago"; font.pixelSize: 16; color: "gray" }
            }
        }
        Rectangle {
            x: 6; y: parent.height - 66; width: parent.width - 12; height: 60; radius: 8; color: "navy"
            Text { x: 20; y: 10; text: "Send us a message"; color: "white"; font.pixelSize: 16 }
            Text { x: 20; y: 32; text: "We typically reply in a few minutes."; color: "white"; font.pixelSize: 16 }
        }
    }
)";

TicketPreviewDto preview(int index)
{
    const QString id = QStringLiteral("ticket-%1").arg(index);
    TicketPreviewDto preview = test::makePreview(id);
    preview.state = index % 5 == 4 ? words::closed : QStringLiteral("open");
    preview.lastMessage =
        test::makeMessage(QStringLiteral("message-%1").arg(index),
                          index % 3 == 0 ? words::aiAgent : words::humanAgent, id);
    preview.lastMessage.sender.name = QStringLiteral("Ada");
    preview.lastMessage.content = QStringLiteral("The last message in conversation %1").arg(index);
    preview.lastMessage.isRead = index % 2 == 0;
    return preview;
}

std::unique_ptr<UrlSession> makeSession(const QList<TicketPreviewDto> &tickets)
{
    auto session = std::make_unique<test::ScriptedSession>();
    session->handler = [&tickets](const UrlRequest &request) {
        const bool isSettings = request.url.path().endsWith(QLatin1String("/settings"));
        return test::json(isSettings ? json::encode(readableBranding())
                                     : test::encodeList(tickets));
    };
    return session;
}

QQuickItem *findList(QQuickItem *item)
{
    if (item->inherits("QQuickListView"))
        return item;
    for (QQuickItem *child : item->childItems()) {
        if (QQuickItem *found = findList(child))
            return found;
    }
    return nullptr;
}

} // namespace

BrandingDto readableBranding()
{
    BrandingDto branding = test::sampleBranding();
    branding.accentLight = QStringLiteral("#ffffff");
    branding.chatBackgroundLight = QStringLiteral("#ffffff");
    branding.bubbleAgentLight = QStringLiteral("#eeeeee");
    return branding;
}

RunningHost::RunningHost(int tickets)
    : m_platform(makeSession(m_tickets))
{
    for (int index = 0; index < tickets; ++index)
        m_tickets += preview(index);
    platform().preferences = std::make_unique<test::MemoryPreferences>();
    QQuickItem *page = test::createItem(*m_window.engine(), hostPage).release();
    m_window.setContent({}, nullptr, page);
    m_window.show();
    m_window.requestActivate();
    nextFrame(m_window);
    test::wait(std::chrono::milliseconds(500));
}

void RunningHost::clearRequests()
{
    static_cast<test::ScriptedSession &>(*platform().urlSession).requests.clear();
}

QQuickItem *RunningHost::messenger() const
{
    for (QQuickItem *item : m_window.contentItem()->childItems()) {
        if (item->property("screen").isValid())
            return item;
    }
    return nullptr;
}

ScreenData &RunningHost::screen() const
{
    return *messenger()->property("screen").value<ScreenData *>();
}

void RunningHost::waitForList() const
{
    test::waitFor(QStringLiteral("the list"),
                  [this] { return screen().state() == QLatin1String("loaded"); });
}

std::unique_ptr<QQuickItem> RunningHost::showPlain(QQmlEngine &engine)
{
    return test::createItem(
        engine, plainPage,
        {{QStringLiteral("parent"), QVariant::fromValue(m_window.contentItem())}});
}

QQuickItem *RunningHost::listIn(QQuickItem *view)
{
    QQuickItem *list = findList(view);
    if (!list)
        qFatal("The view has no list");
    return list;
}

} // namespace tolvane::bench
