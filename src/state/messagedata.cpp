// SPDX-License-Identifier: MIT
#include "state/messagedata.h"

namespace tolvane {

void MessageData::setSelectedAttachment(const QUrl &url)
{
    if (m_selectedAttachment == url)
        return;
    m_selectedAttachment = url;
    Q_EMIT selectedAttachmentChanged();
}

} // namespace tolvane
