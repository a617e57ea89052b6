// SPDX-License-Identifier: MIT
// Push payloads: they are broadcast unchanged or not at all, and no message appears twice.
#include "backend/wire/json.h"
#include "facade/pushrouting.h"
#include "platform/async/awaitfuture.h"
#include "state/notifications.h"
#include "state/ticketdata.h"
#include "targets.h"
#include "testing/samplerecords.h"

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

/// A payload from a host: mostly dictionaries, but a variant can hold any other type.
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

/// A library with an API key, and a backend with one ticket.
struct PushFixture : Fixture
{
    PushFixture()
    {
        setKey();
        session->handler = [this](const UrlRequest &) { return answer(ticket); };
    }

    void forget()
    {
        clock->advance(std::chrono::seconds(2)); // Pending refreshes.
        settle();
        broadcasts.clear();
        log->lines.clear();
        log->types.clear();
        delegate->events.clear();
        session->requests.clear();
    }

    const TicketDto ticket = makeTicket({makeMessage(u"m1"_s)});
};

void reactTo(const Broadcast &broadcast, PushFixture &fixture)
{
    const auto store = std::make_shared<TicketData>(makePreview());
    detach(store->fetchTicket());
    settle();
    for (int times = 0; times < 2; ++times) {
        if (broadcast.name == notifications::didReceiveMessage) {
            store->onMessageNotification(
                UserInfo::fromDictionary(*broadcast.userInfo, json::decode<MessageDto>));
        } else {
            store->onStateUpdateNotification(
                UserInfo::fromDictionary(*broadcast.userInfo, json::decode<TicketPreviewDto>));
        }
    }
    QSet<QString> ids;
    for (const MessageDto &message : store->ticket()->messages)
        ids += message.id;
    require(ids.size() == store->ticket()->messages.size(), "no message appears twice");
    require(ids.size() <= fixture.ticket.messages.size() + 1, "a push adds at most one message");
    require(store->ticketId() == fixture.ticket.id, "a push does not change the conversation");
}

} // namespace

void pushes(Input input)
{
    static auto &fixture = *new PushFixture;
    const int form = input.byte();
    const QVariantMap payload = payloadOf(form, input.rest());
    const auto expected = expectedOf(payload);
    pushrouting::willPresent(payload);
    require(fixture.broadcasts.isEmpty(), "nothing is broadcast while the messenger is closed");
    pushrouting::handle(payload);
    require(fixture.broadcasts.size() == (expected ? 1 : 0), "a push of ours is broadcast once");
    if (expected) {
        require(fixture.broadcasts.constFirst().name == expected->name,
                "the broadcast has the right name");
        require(form & isDeep || fixture.broadcasts.constFirst().userInfo == expected->userInfo,
                "the payload is unchanged");
        reactTo(*expected, fixture);
    }
    fixture.forget();
}

} // namespace tolvane::fuzz
