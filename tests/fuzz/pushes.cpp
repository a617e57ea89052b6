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
    const QVariantMap payload = QJsonDocument::fromJson(input.rest()).object().toVariantMap();
    pushrouting::willPresent(payload);
    require(fixture.broadcasts.isEmpty(), "nothing is broadcast while the messenger is closed");
    pushrouting::handle(payload);
    require(fixture.broadcasts.size() <= 1, "a push is broadcast at most once");
    if (!fixture.broadcasts.isEmpty()) {
        const Broadcast broadcast = fixture.broadcasts.constFirst();
        require(payload.value(u"message"_s) == *broadcast.userInfo ||
                    payload.value(u"ticketPreview"_s) == *broadcast.userInfo,
                "the content is unchanged");
        reactTo(broadcast, fixture);
    }
    fixture.forget();
}

} // namespace tolvane::fuzz
