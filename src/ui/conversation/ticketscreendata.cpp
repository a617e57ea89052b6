// SPDX-License-Identifier: MIT
#include "ui/conversation/ticketscreendata.h"

#include "platform/async/awaitfuture.h"
#include "recovery/drafts.h"
#include "state/loadingstatename.h"
#include "ui/conversation/ticketheader.h"
#include "ui/loadingstate/loadingstatetexts.h"

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
    m_ticketData->setDerivation(&MessageListModel::derive);
    Drafts::shared()->follow(*m_ticketData);
    m_composer.emplace(m_ticketData);
    const TicketData *source = m_ticketData.get();
    connect(source, &TicketData::ticketChanged, this, &TicketScreenData::updateTicket);
    connect(source, &TicketData::busyChanged, this, &TicketScreenData::updateState);
    connect(source, &TicketData::errorsChanged, this, &TicketScreenData::updateErrors);
    m_observation = m_ticketData->observe();
    updateTicket();
    Q_EMIT destinationChanged();
}

QString TicketScreenData::ticketState() const
{
    return m_ticketData && m_ticketData->ticket() ? m_ticketData->ticket()->state : QString();
}

void TicketScreenData::appear()
{
    const std::stop_token stop = m_stopSource.get_token();
    detach(m_ticketData->ticket() ? m_ticketData->silentFetchTicket({}, stop)
                                  : m_ticketData->fetchTicket({}, stop));
}

void TicketScreenData::updateErrors()
{
    if (m_ticketData->fetchError())
        m_backOff.failed();
    updateState();
}

void TicketScreenData::updateTicket()
{
    if (!m_ticketData->fetchError())
        m_backOff.succeeded();
    if (m_ticketData->ticket())
        m_messages.setMessages(m_ticketData->ticket()->messages, m_ticketData->messagesGeneration(),
                               m_ticketData->derivedMessages());
    if (m_ticketData->preview())
        m_preview.setMessages({m_ticketData->preview()->lastMessage});
    m_title = ticketheader::title(*m_ticketData);
    m_availability =
        m_ticketData->preview() ? ticketheader::subtitle(*m_ticketData) : SupportAvailability();
    Q_EMIT ticketChanged();
    updateState();
}

void TicketScreenData::updateState()
{
    const TicketData::State state = m_ticketData->state();
    const QString name = caseName(state);
    const QString text = tolvane::errorText(state);
    if (m_state == name && m_errorText == text)
        return;
    m_state = name;
    m_errorText = text;
    Q_EMIT stateChanged();
}

} // namespace tolvane
