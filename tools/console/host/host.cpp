// SPDX-License-Identifier: MIT
#include "host/host.h"

#include "backend/configuration.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/sdkdata.h"

#include <tolvane/tolvane.h>

namespace tolvane::console {

namespace {

class ListenerSink final : public LogSink
{
public:
    explicit ListenerSink(Listener &listener)
        : m_listener(listener)
    {
    }

    bool isEnabled(LogType) const override { return true; }
    void write(LogType type, const QString &line) override { m_listener.onLog(type, line); }

private:
    Listener &m_listener;
};

class ListenerDelegate final : public TolvaneAnalyticsDelegate
{
public:
    explicit ListenerDelegate(Listener &listener)
        : m_listener(listener)
    {
    }

    void didReceiveEvent(const TolvaneAnalyticsEvent &event) override { m_listener.onEvent(event); }

private:
    Listener &m_listener;
};

using Delivery = NotificationCenter::Delivery;

} // namespace

void installPlatform(Listener &listener)
{
    auto installed = std::make_unique<Platform>(makeProductionPlatform());
    installed->makeLogSink = [&listener](const QString &, const QString &) {
        return std::make_unique<ListenerSink>(listener);
    };
    installed->present = [&listener] { listener.onPresentation(); };
    exchangePlatform(std::move(installed));
}

bool isInitialized()
{
    return Configuration::shared().apiKey().has_value();
}

Host::Host(Listener &listener)
    : m_delegate(std::make_shared<ListenerDelegate>(listener))
{
    for (const QString &name :
         {notifications::didReceiveMessage, notifications::didReceiveStateUpdate,
          notifications::didChangeState, notifications::didSendMessage}) {
        m_broadcasts.push_back(platform().notificationCenter->observe(
            name, Delivery::postingThread,
            [&listener, name](const NotificationCenter::UserInfo &userInfo) {
                listener.onBroadcast(name, userInfo);
            }));
    }
}

void Host::setAnalyticsDelegate(bool enabled)
{
    Tolvane::setAnalyticsDelegate(enabled ? m_delegate : nullptr);
}

void Host::setOpen(bool open)
{
    SdkData::shared(); // Creates it, as a user interface does before it opens: it must observe.
    platform().notificationCenter->post(notifications::didChangeState,
                                        QVariantMap{{QStringLiteral("open"), open}});
}

std::optional<TicketPreviewDto> Host::row(const QString &ticketId) const
{
    for (const TicketPreviewDto &preview :
         m_tickets->state().value().value_or(TicketsData::Tickets())) {
        if (preview.id == ticketId)
            return preview;
    }
    return std::nullopt;
}

int Host::open(std::optional<TicketPreviewDto> preview)
{
    const auto store = std::make_shared<TicketData>(std::move(preview));
    m_open[++m_lastHandle] = {store, store->observe()};
    return m_lastHandle;
}

std::shared_ptr<TicketData> Host::ticket(int handle) const
{
    const auto found = m_open.find(handle);
    return found == m_open.end() ? nullptr : found->second.store;
}

void Host::close(int handle)
{
    m_open.erase(handle);
}

} // namespace tolvane::console
