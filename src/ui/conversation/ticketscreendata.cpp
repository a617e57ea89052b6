// SPDX-License-Identifier: MIT
#include "ui/conversation/ticketscreendata.h"

#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "ui/conversation/ticketheader.h"
#include "ui/kit/loadingstatetexts.h"

#include <QtCore/QPointer>

namespace tolvane {

TicketScreenData::TicketScreenData(QObject *parent)
    : QObject(parent)
{
}

TicketScreenData::~TicketScreenData()
{
    m_stopSource.request_stop();
}

void TicketScreenData::setDestination(const TolvaneDestination &destination)
{
    if (m_ticketData)
        return;
    m_destination = destination;
    const TicketPreviewDto *preview = destination.preview();
    m_ticketData = std::make_shared<TicketData>(preview ? std::optional(*preview) : std::nullopt);
    m_ticketData->setNewTicket(!preview);
    m_composer.emplace(m_ticketData);
    observe();
    syncFromStore();
    Q_EMIT destinationChanged();
}

QString TicketScreenData::state() const
{
    return m_ticketData ? caseName(m_ticketData->state()) : QString();
}

QString TicketScreenData::errorText() const
{
    return m_ticketData ? tolvane::errorText(m_ticketData->state()) : QString();
}

QString TicketScreenData::title() const
{
    return m_ticketData ? ticketheader::title(*m_ticketData) : QString();
}

QString TicketScreenData::ticketState() const
{
    return m_ticketData && m_ticketData->ticket() ? m_ticketData->ticket()->state : QString();
}

void TicketScreenData::appear()
{
    if (m_hasLoaded)
        detach(m_ticketData->silentFetchTicket({}, m_stopSource.get_token()));
    else
        detach(load());
}

QCoro::Task<> TicketScreenData::load()
{
    const QPointer self(this);
    const auto store = m_ticketData;
    co_await store->fetchTicket({}, m_stopSource.get_token());
    if (self)
        m_hasLoaded = true;
}

void TicketScreenData::observe()
{
    connect(m_ticketData.get(), &TicketData::changed, this, &TicketScreenData::syncFromStore);
    using Reaction = void (TicketData::*)(const NotificationCenter::UserInfo &);
    const auto pass = [this](const QString &name, Reaction reaction) {
        m_observations.push_back(platform().notificationCenter->observe(
            name, NotificationCenter::Delivery::mainThread,
            [store = m_ticketData.get(), reaction](const auto &userInfo) {
                (store->*reaction)(userInfo);
            }));
    };
    pass(notifications::didReceiveStateUpdate, &TicketData::onStateUpdateNotification);
    pass(notifications::didReceiveMessage, &TicketData::onMessageNotification);
}

void TicketScreenData::syncFromStore()
{
    if (m_ticketData->ticket())
        m_messages.setMessages(m_ticketData->ticket()->messages);
    if (m_ticketData->preview())
        m_preview.setMessages({m_ticketData->preview()->lastMessage});
    m_availability =
        m_ticketData->preview() ? ticketheader::subtitle(*m_ticketData) : SupportAvailability();
    Q_EMIT changed();
}

} // namespace tolvane
