// SPDX-License-Identifier: MIT
#include "streams/changenotifier.h"

#include "base/errors.h"

#include <utility>

namespace tolvane::backend {

namespace {

// Each stream occupies a connection of the server, as push streams do.
constexpr std::size_t maxStreams = 16;

} // namespace

void ChangeNotifier::notify(const std::string &ticketId)
{
    for (ChangeStream *stream : m_streams) {
        stream->m_ticketIds.insert(ticketId);
        stream->wake();
    }
}

ChangeStream::ChangeStream(ChangeNotifier &notifier, EventOf eventOf)
    : m_notifier(notifier)
    , m_eventOf(std::move(eventOf))
{
    if (m_notifier.m_streams.size() >= maxStreams)
        throw HttpError(503, "too many agent pages are open");
    m_notifier.m_streams.insert(this);
}

ChangeStream::~ChangeStream()
{
    m_notifier.m_streams.erase(this);
}

std::string ChangeStream::next()
{
    std::string events;
    for (const std::string &id : std::exchange(m_ticketIds, {}))
        events += m_eventOf(id);
    return events;
}

} // namespace tolvane::backend
