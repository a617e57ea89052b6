// SPDX-License-Identifier: MIT
// The messenger in an item of the host, where it does not slide in, like a web view. With the page
// "window" it opens over the window instead, and slides in.
#include "conversationview.h"
#include "state/navigation/conversationrequest.h"

#include <tolvane/tolvane.h>
#include <tolvane/views.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtQuick/QQuickItem>

namespace tolvane::peers {

namespace {

class MessengerView final : public ConversationView
{
public:
    explicit MessengerView(const Conversation &conversation)
        : m_conversation(conversation)
    {
        qputenv("TOLVANE_API_URL", conversation.url.toUtf8());
        Tolvane::initialize(conversation.key);
    }

    void open(QQuickView &window) override
    {
        if (m_conversation.page == QLatin1String("window"))
            return Tolvane::openConversation(m_conversation.ticket);
        // The item opens the messenger, which then shows what is requested.
        ConversationRequest::shared()->set(
            {.destination = TolvaneDestination::ticket(
                 {.id = m_conversation.ticket, .state = {}, .lastMessage = {}}),
             .text = {}});
        m_item.reset(createMessengerItem());
        m_item->setSize(window.size());
        m_item->setParentItem(window.rootObject());
    }

    void close() override
    {
        Tolvane::close();
        m_item.reset();
    }

    void receive(const QByteArray &message) override
    {
        Tolvane::willPresentNotification(
            {{QStringLiteral("source"), QStringLiteral("tolvane")},
             {QStringLiteral("message"),
              QJsonDocument::fromJson(message).object().toVariantMap()}});
    }

private:
    const Conversation m_conversation;
    std::unique_ptr<QQuickItem> m_item;
};

} // namespace

void prepareProcess() {}

QByteArray versions()
{
    return Tolvane::version().toUtf8();
}

std::unique_ptr<ConversationView> makeView(const Conversation &conversation)
{
    return std::make_unique<MessengerView>(conversation);
}

} // namespace tolvane::peers
