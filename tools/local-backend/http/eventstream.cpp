// SPDX-License-Identifier: MIT
#include "http/eventstream.h"

#include <microhttpd.h>
#include <utility>

namespace tolvane::backend {

void EventStream::wake()
{
    if (MHD_Connection *const connection = std::exchange(m_suspended, nullptr))
        MHD_resume_connection(connection);
    else
        m_isAwake = true;
}

bool EventStream::suspend(MHD_Connection *connection)
{
    if (std::exchange(m_isAwake, false))
        return false;
    m_suspended = connection;
    MHD_suspend_connection(connection);
    return true;
}

} // namespace tolvane::backend
