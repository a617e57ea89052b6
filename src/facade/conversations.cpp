// SPDX-License-Identifier: MIT
#include "facade/conversations.h"

#include "backend/wire/json.h"
#include "facade/pushrouting.h"
#include "state/navigation/conversationrequest.h"

#include <tolvane/error.h>

namespace tolvane::conversations {

namespace {

void openWith(const ConversationRequest::Request &request)
{
    ConversationRequest::shared()->set(request);
    Tolvane::open();
    // Without a window nothing was opened. A later open() shows the list.
    ConversationRequest::shared()->take();
}

template <typename Record>
std::optional<Record> recordAt(const QVariantMap &push, const QString &key)
{
    try {
        return json::decode<Record>(push.value(key).toMap());
    } catch (const Error &) {
        return std::nullopt; // The delivery of the push logs it.
    }
}

/// The preview of the push's conversation, as far as the push contains it.
std::optional<TicketPreviewDto> previewOf(const QVariantMap &push)
{
    if (const auto message = recordAt<MessageDto>(push, QStringLiteral("message")))
        return TicketPreviewDto{.id = message->ticketId, .state = {}, .lastMessage = *message};
    return recordAt<TicketPreviewDto>(push, QStringLiteral("ticketPreview"));
}

} // namespace

void open(const QString &ticketId)
{
    openWith({.destination =
                  TolvaneDestination::ticket({.id = ticketId, .state = {}, .lastMessage = {}}),
              .text = {}});
}

void openNew(const QString &text)
{
    openWith({.destination = TolvaneDestination::newTicket(), .text = text});
}

void requestFor(const QVariantMap &push)
{
    if (!pushrouting::isTolvanePush(push))
        return;
    if (const auto preview = previewOf(push)) {
        ConversationRequest::shared()->set(
            {.destination = TolvaneDestination::ticket(*preview), .text = {}});
    }
}

} // namespace tolvane::conversations
