// SPDX-License-Identifier: MIT
#include "ui/home/screendata.h"

#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "recovery/drafts.h"
#include "state/loadingstatename.h"
#include "state/notifications.h"
#include "state/sdkdata.h"
#include "ui/loadingstate/errortext.h"
#include "ui/loadingstate/loadingstatetexts.h"

namespace tolvane {

ScreenData::ScreenData(QObject *parent)
    : QObject(parent)
{
    connect(m_ticketsData.get(), &TicketsData::changed, this, &ScreenData::syncFromStore);
    connect(SdkData::shared().get(), &SdkData::changed, this, &ScreenData::syncFromSettings);
    connect(Drafts::shared().get(), &Drafts::changed, &m_tickets, &TicketListModel::updateTexts);
    connect(Drafts::shared().get(), &Drafts::changed, this, &ScreenData::draftsChanged);
    startOnceSettingsLoaded();
    if (SdkData::shared()->settingsError())
        loadSettings();
    connect(ConversationRequest::shared().get(), &ConversationRequest::requested, this,
            &ScreenData::showRequestedConversation);
    showRequestedConversation();
}

void ScreenData::syncFromSettings()
{
    startOnceSettingsLoaded();
    const SdkData &settings = *SdkData::shared();
    if (settings.settingsDidLoad())
        m_settingsBackOff.succeeded();
    else if (settings.settingsError() && !settings.isFetchingSettings())
        m_settingsBackOff.failed();
    Q_EMIT settingsChanged();
}

void ScreenData::loadSettings()
{
    const auto settings = SdkData::shared();
    if (!settings->settingsDidLoad() && !settings->isFetchingSettings())
        detach(settings->fetchSettings());
}

bool ScreenData::isLoadingSettings() const
{
    return SdkData::shared()->isFetchingSettings();
}

QString ScreenData::settingsErrorText() const
{
    const ErrorPtr &error = SdkData::shared()->settingsError();
    return error && !settingsDidLoad() ? tolvane::errorText(*error) : QString();
}

void ScreenData::setPanelPreferred(bool prefersPanel)
{
    if (std::exchange(m_prefersPanel, prefersPanel) != prefersPanel)
        Q_EMIT prefersPanelChanged();
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

bool ScreenData::isStale() const
{
    return m_ticketsData->state().failure() && m_tickets.rowCount() > 0;
}

QString ScreenData::state() const
{
    return isStale() ? QStringLiteral("loaded") : caseName(m_ticketsData->state());
}

bool ScreenData::hasNewTicketDraft() const
{
    return Drafts::shared()->contains({});
}

bool ScreenData::isListKnown() const
{
    const TicketsData::State &state = m_ticketsData->state();
    return state.value() || state.current() == TicketsData::State::Case::empty;
}

QStringList ScreenData::ticketIds() const
{
    QStringList ids;
    const auto tickets = m_ticketsData->state().value();
    for (const TicketPreviewDto &ticket : tickets.value_or(TicketsData::Tickets()))
        ids += ticket.id;
    return ids;
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
    load();
    // Queued, to ignore the broadcast of a push that opens the messenger: it comes right
    // afterwards, and the requested list contains its message.
    QMetaObject::invokeMethod(this, &ScreenData::observe, Qt::QueuedConnection);
}

void ScreenData::observe()
{
    for (const QString &name :
         {notifications::didReceiveMessage, notifications::didReceiveStateUpdate,
          notifications::didSendMessage})
        m_observations.push_back(platform().notificationCenter->observe(
            name, NotificationCenter::Delivery::mainThread, [this](const auto &) { reload(); }));
}

void ScreenData::showRequestedConversation()
{
    const auto request = ConversationRequest::shared()->take();
    if (!request)
        return;
    const TolvaneDestination &wanted = request->destination;
    // Keeps the page with its draft if the conversation is already open.
    const bool isOpen = !m_navigation.isEmpty() &&
                        m_navigation.path().constFirst().kind() == wanted.kind() &&
                        m_navigation.path().constFirst().ticketId() == wanted.ticketId();
    m_navigation.setPath({isOpen ? m_navigation.path().constFirst() : wanted});
    m_newTicketText = request->text;
    Q_EMIT newTicketTextChanged();
}

void ScreenData::syncFromStore()
{
    // Keeps the rows while a skeleton is shown, and thus the scroll position of the list.
    if (const auto tickets = m_ticketsData->state().value())
        m_tickets.setTickets(*tickets, m_ticketsData->update());
    else if (m_ticketsData->state().current() == TicketsData::State::Case::empty)
        m_tickets.setTickets({}, m_ticketsData->update());
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
