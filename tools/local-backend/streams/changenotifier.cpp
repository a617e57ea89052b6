// SPDX-License-Identifier: MIT
#include "streams/changenotifier.h"

#include "base/errors.h"

namespace tolvane::backend {

namespace {

// Each stream occupies a connection of the server, as push streams do.
constexpr std::size_t maxStreams = 16;

} // namespace

void ChangeNotifier::notify(const std::string &ticketId)
{
    const std::lock_guard lock(m_mutex);
    for (ChangeStream *stream : m_streams) {
        stream->m_ticketIds.insert(ticketId);
        stream->wake();
    }
}

ChangeStream::ChangeStream(ChangeNotifier &notifier, EventOf eventOf)
    : m_notifier(notifier)
    , m_eventOf(std::move(eventOf))
{
    const std::lock_guard lock(m_notifier.m_mutex);
    if (m_notifier.m_streams.size() >= maxStreams)
        throw HttpError(503, "too many agent pages are open");
    m_notifier.m_streams.insert(this);
}

ChangeStream::~ChangeStream()
{
    const std::lock_guard lock(m_notifier.m_mutex);
    m_notifier.m_streams.erase(this);
}

std::string ChangeStream::next()
{
    std::set<std::string> changed;
    {
        const std::lock_guard lock(m_notifier.m_mutex);
        changed.swap(m_ticketIds);
    }
    std::string events;
    for (const std::string &id : changed)
        events += m_eventOf(id);
    return events;
}

} // namespace tolvane::backend
