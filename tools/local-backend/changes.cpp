// SPDX-License-Identifier: MIT
#include "changes.h"

#include "errors.h"

#include <utility>

namespace tolvane::backend {

namespace {

// Each stream occupies a worker thread of the server, as push streams do.
constexpr std::size_t mostStreams = 16;

} // namespace

void Changes::add(const std::string &ticketId)
{
    const std::lock_guard lock(m_mutex);
    for (ChangeStream *stream : m_streams) {
        stream->m_ticketIds.insert(ticketId);
        stream->m_news.add();
    }
}

ChangeStream::ChangeStream(Changes &changes)
    : m_changes(changes)
{
    const std::lock_guard lock(m_changes.m_mutex);
    if (m_changes.m_streams.size() >= mostStreams)
        throw Refusal(503, "too many agent pages are open");
    m_changes.m_streams.insert(this);
}

ChangeStream::~ChangeStream()
{
    const std::lock_guard lock(m_changes.m_mutex);
    m_changes.m_streams.erase(this);
}

std::set<std::string> ChangeStream::take()
{
    const std::lock_guard lock(m_changes.m_mutex);
    return std::exchange(m_ticketIds, {});
}

} // namespace tolvane::backend
