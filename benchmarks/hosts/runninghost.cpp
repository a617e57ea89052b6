// SPDX-License-Identifier: MIT
#include "runninghost.h"

#include "backend/wire/json.h"
#include "frames.h"
#include "platform/platform.h"
#include "testing/replacements.h"

#include <QtQml/QQmlEngine>

namespace tolvane::bench {

namespace {

/// The host's own scene: texts in a list, and something that never rests.
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

/// What any interface of the kind has: a header, rows with texts, a button. Nothing more.
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
    const bool isAgent = index % 3 == 0;
    return {
        .id = QStringLiteral("ticket-%1").arg(index),
        .state = index % 5 == 4 ? QStringLiteral("closed") : QStringLiteral("open"),
        .lastMessage = {.id = QStringLiteral("message-%1").arg(index),
                        .ticketId = QStringLiteral("ticket-%1").arg(index),
                        .sender = {.id = QStringLiteral("sender"),
                                   .name = QStringLiteral("Ada"),
                                   .profilePicture = {},
                                   .type = isAgent ? words::aiAgent : words::humanAgent},
                        .content = QStringLiteral("The last message in conversation %1").arg(index),
                        .isRead = index % 2 == 0,
                        .timestamp = QStringLiteral("2026-03-14T12:00:00+0000"),
                        .attachments = {}}};
}

QByteArray listJson(const QList<TicketPreviewDto> &tickets)
{
    QByteArrayList rows;
    for (const TicketPreviewDto &ticket : tickets)
        rows += json::encode(ticket);
    return '[' + rows.join(',') + ']';
}

BrandingDto branding()
{
    BrandingDto branding;
    forEachField<BrandingDto>([&](const auto &field) {
        if constexpr (std::is_same_v<std::decay_t<decltype(branding.*field.member)>, QString>)
            branding.*field.member = QStringLiteral("#205d4e");
    });
    branding.accentLight = QStringLiteral("#ffffff");
    branding.chatBackgroundLight = QStringLiteral("#ffffff");
    branding.bubbleAgentLight = QStringLiteral("#eeeeee");
    return branding;
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

RunningHost::RunningHost(int tickets)
{
    for (int index = 0; index < tickets; ++index)
        m_tickets += preview(index);
    installPlatform();
    QQmlComponent component(m_window.engine());
    component.setData(hostPage, QUrl());
    m_window.setContent({}, nullptr, component.create());
    m_window.show();
    m_window.requestActivate();
    nextFrame(m_window);
    pause(500);
}

void RunningHost::installPlatform()
{
    auto installed = std::make_unique<Platform>(makeProductionPlatform());
    installed->preferences = std::make_unique<test::MemoryPreferences>();
    auto session = std::make_unique<test::ScriptedSession>();
    session->handler = [this](const UrlRequest &request) {
        const bool isSettings = request.url.path().endsWith(QLatin1String("/settings"));
        return UrlResponse{.status = 200,
                           .headers = {{"Content-Type", "application/json"}},
                           .body = isSettings ? json::encode(branding()) : listJson(m_tickets)};
    };
    installed->urlSession = std::move(session);
    installed->makeUrlCache = [this](UrlCache::Settings settings) {
        settings.diskPath = m_caches.filePath(settings.diskPath);
        return makeUrlCache(settings);
    };
    exchangePlatform(std::move(installed));
}

void RunningHost::forgetRequests()
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
    waitUntil([this] { return screen().state() == QLatin1String("loaded"); });
}

QQuickItem *RunningHost::showPlain(QQmlEngine &engine)
{
    QQmlComponent component(&engine);
    component.setData(plainPage, QUrl());
    auto *view = qobject_cast<QQuickItem *>(component.createWithInitialProperties(
        {{QStringLiteral("parent"), QVariant::fromValue(m_window.contentItem())}}));
    if (!view)
        qFatal("%s", qPrintable(component.errorString()));
    return view;
}

QQuickItem *RunningHost::listIn(QQuickItem *view)
{
    QQuickItem *list = findList(view);
    if (!list)
        qFatal("there is no list");
    return list;
}

} // namespace tolvane::bench
