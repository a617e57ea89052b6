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
    const std::lock_guard lock(m_mutex);
    for (ChangeStream *stream : m_streams) {
        stream->m_ticketIds.insert(ticketId);
        stream->m_wakeup.release();
    }
}

ChangeStream::ChangeStream(ChangeNotifier &notifier)
    : m_notifier(notifier)
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

std::set<std::string> ChangeStream::take()
{
    const std::lock_guard lock(m_notifier.m_mutex);
    return std::exchange(m_ticketIds, {});
}

} // namespace tolvane::backend
