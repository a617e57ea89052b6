// SPDX-License-Identifier: MIT
// Push payloads: they are told on whole or not at all, and none is shown twice.
#include "facade/pushrouting.h"
#include "platform/async/await.h"
#include "state/notifications.h"
#include "state/ticketdata.h"
#include "targets.h"
#include "testing/wire.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSet>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;
using namespace test;

enum Form { isNamed = 1, isMessage = 2, isPreview = 4, isHash = 8, isDeep = 16, isBytes = 32 };

QVariant nested(QVariant value)
{
    for (int level = 0; level < 2000; ++level)
        value = QVariantMap{{u"a"_s, value}};
    return value;
}

/// What a host may give: mostly dictionaries, but whatever else a variant holds as well.
QVariantMap payloadOf(int form, const QByteArray &bytes)
{
    const QVariantMap map = QJsonDocument::fromJson(bytes).object().toVariantMap();
    QVariant content = map;
    if (form & isHash)
        content = QVariantHash{{u"id"_s, map}};
    if (form & isBytes)
        content = bytes;
    if (form & isDeep)
        content = nested(content);
    QVariantMap payload = form & (isMessage | isPreview) ? QVariantMap() : map;
    if (form & isNamed)
        payload[u"source"_s] = u"tolvane"_s;
    if (form & isMessage)
        payload[u"message"_s] = content;
    if (form & isPreview)
        payload[u"ticketPreview"_s] = content;
    return payload;
}

std::optional<Broadcast> expectedOf(const QVariantMap &payload)
{
    const auto isMap = [&payload](const QString &key) {
        return payload[key].typeId() == QMetaType::QVariantMap;
    };
    const QVariant source = payload[u"source"_s];
    if (source.typeId() != QMetaType::QString || source.toString() != u"tolvane"_s)
        return std::nullopt;
    if (isMap(u"message"_s))
        return Broadcast{notifications::didReceiveMessage, payload[u"message"_s].toMap()};
    if (isMap(u"ticketPreview"_s))
        return Broadcast{notifications::didReceiveStateUpdate, payload[u"ticketPreview"_s].toMap()};
    return std::nullopt;
}

/// A library that has started, with a conversation that is open.
struct Scene : Fixture
{
    Scene()
    {
        setKey();
        session->handler = [this](const UrlRequest &) { return answer(ticket); };
    }

    void forget()
    {
        clock->advance(std::chrono::seconds(2)); // Refreshes that are still to come.
        settle();
        broadcasts.clear();
        log->lines.clear();
        log->types.clear();
        delegate->events.clear();
        session->requests.clear();
    }

    const TicketDto ticket = makeTicket({makeMessage(u"m1"_s)});
};

void reactTo(const Broadcast &broadcast, Scene &scene)
{
    const auto store = std::make_shared<TicketData>(makePreview());
    detach(store->fetchTicket());
    settle();
    for (int times = 0; times < 2; ++times) {
        if (broadcast.name == notifications::didReceiveMessage)
            store->onMessageNotification(broadcast.userInfo);
        else
            store->onStateUpdateNotification(broadcast.userInfo);
    }
    QSet<QString> ids;
    for (const MessageDto &message : store->ticket()->messages)
        ids += message.id;
    require(ids.size() == store->ticket()->messages.size(), "no message is there twice");
    require(ids.size() <= scene.ticket.messages.size() + 1, "a push is one message");
    require(store->ticketId() == scene.ticket.id, "a push leads to no other conversation");
}

} // namespace

void pushes(Input input)
{
    static auto &scene = *new Scene;
    const int form = input.byte();
    const QVariantMap payload = payloadOf(form, input.rest());
    const auto expected = expectedOf(payload);
    pushrouting::willPresent(payload);
    require(scene.broadcasts.isEmpty(), "while it is closed nothing is told");
    pushrouting::handle(payload);
    require(scene.broadcasts.size() == (expected ? 1 : 0), "what is ours is told once");
    if (expected) {
        require(scene.broadcasts.constFirst().name == expected->name, "by its name");
        require(form & isDeep || scene.broadcasts.constFirst().userInfo == expected->userInfo,
                "whole and unchanged");
        reactTo(*expected, scene);
    }
    scene.forget();
}

} // namespace tolvane::fuzz
