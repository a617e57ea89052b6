// SPDX-License-Identifier: MIT
#include "conversation.h"

#include "testing/samplerecords.h"

#include <array>

namespace tolvane::bench {

namespace {

constexpr std::array texts = {
    "Hello?",
    "Where is my parcel? It *should* have been here on Monday – thanks for looking.",
    "I have looked it up for you: it left our warehouse on Friday, and the carrier has had it "
    "since. Sometimes their updates are a day late. May I ask whether anybody was at home on "
    "Monday?",
    "Yes, all day.",
    "Then there is a list of what you can do: see https://shop.example/parcels/lost for the form, "
    "wait **until Thursday**, or tell me that you would rather have it sent again. In the last "
    "case I need the address once more, with the name that is on the door, and a time of day at "
    "which somebody is there. It costs nothing either way, and I am sorry for the trouble.",
};

} // namespace

TicketDto conversation(int messageCount)
{
    TicketDto ticket = test::makeTicket({}, QStringLiteral("ticket"));
    ticket.assignee = words::humanAgent;
    for (int i = 0; i < messageCount; ++i) {
        const bool isAgent = i % 2 == 1;
        MessageDto message =
            test::makeMessage(QStringLiteral("01j%1").arg(i, 23, 10, QLatin1Char('0')),
                              isAgent ? words::humanAgent : words::customer, ticket.id);
        if (isAgent)
            message.sender.name = QStringLiteral("Ines");
        message.content = QString::fromUtf8(texts.at(std::size_t(i) % texts.size()));
        message.isRead = true;
        if (i % 10 == 3)
            message.attachments = {QStringLiteral("https://cdn.example/%1.jpg").arg(i)};
        ticket.messages += message;
    }
    return ticket;
}

QByteArray conversationJson(int messageCount)
{
    return json::encode(conversation(messageCount));
}

} // namespace tolvane::bench
