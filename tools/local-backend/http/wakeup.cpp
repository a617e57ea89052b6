// SPDX-License-Identifier: MIT
#include "http/wakeup.h"

#include <microhttpd.h>
#include <utility>

namespace tolvane::backend {

void Wakeup::release() const
{
    const std::lock_guard lock(m_mutex);
    if (MHD_Connection *const connection = std::exchange(m_suspended, nullptr))
        MHD_resume_connection(connection);
    else
        m_isReleased = true;
}

bool Wakeup::suspend(MHD_Connection *connection) const
{
    const std::lock_guard lock(m_mutex);
    if (std::exchange(m_isReleased, false))
        return false;
    m_suspended = connection;
    MHD_suspend_connection(connection);
    return true;
}

} // namespace tolvane::backend
