// SPDX-License-Identifier: MIT
#include "ui/home/screendata.h"

#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/loadingstatename.h"
#include "state/notifications.h"
#include "state/sdkdata.h"
#include "ui/kit/loadingstatetexts.h"

namespace tolvane {

ScreenData::ScreenData(QObject *parent)
    : QObject(parent)
{
    connect(m_ticketsData.get(), &TicketsData::changed, this, &ScreenData::syncFromStore);
    connect(SdkData::shared().get(), &SdkData::changed, this, [this] {
        startOnceSettingsLoaded();
        Q_EMIT settingsChanged();
    });
    startOnceSettingsLoaded();
    connect(ConversationRequest::shared().get(), &ConversationRequest::requested, this,
            &ScreenData::showRequestedConversation);
    showRequestedConversation();
}

void ScreenData::setShown(bool isShown)
{
    if (m_isShown == isShown)
        return;
    m_isShown = isShown;
    Q_EMIT isShownChanged();
}

bool ScreenData::settingsDidLoad() const
{
    return SdkData::shared()->settingsDidLoad();
}

QString ScreenData::state() const
{
    return caseName(m_ticketsData->state());
}

QString ScreenData::errorText() const
{
    return tolvane::errorText(m_ticketsData->state());
}

void ScreenData::startOnceSettingsLoaded()
{
    if (m_hasStarted || !settingsDidLoad())
        return;
    m_hasStarted = true;
    for (const QString &name :
         {notifications::didReceiveMessage, notifications::didReceiveStateUpdate,
          notifications::didSendMessage})
        m_observations.push_back(platform().notificationCenter->observe(
            name, NotificationCenter::Delivery::mainThread, [this](const auto &) { reload(); }));
    load();
}

void ScreenData::showRequestedConversation()
{
    const auto request = ConversationRequest::shared()->take();
    if (!request)
        return;
    const TolvaneDestination &wanted = request->destination;
    // The page stays, with its draft, if the conversation is open already.
    const bool isOpen = !m_navigation.isEmpty() &&
                        m_navigation.path().constFirst().kind() == wanted.kind() &&
                        m_navigation.path().constFirst().ticketId() == wanted.ticketId();
    m_navigation.setPath({isOpen ? m_navigation.path().constFirst() : wanted});
    m_newTicketText = request->text;
    Q_EMIT newTicketTextChanged();
}

void ScreenData::syncFromStore()
{
    // The rows are kept while a skeleton is shown, so that the list keeps its position.
    if (const auto tickets = m_ticketsData->state().value())
        m_tickets.setTickets(*tickets);
    Q_EMIT ticketsChanged();
}

void ScreenData::load()
{
    detach(m_ticketsData->load());
}

void ScreenData::reload()
{
    detach(m_ticketsData->reload());
}

} // namespace tolvane
