// SPDX-License-Identifier: MIT
#include "state/navigation/conversationrequest.h"

#include "base/sharedinstance.h"

namespace tolvane {

const std::shared_ptr<ConversationRequest> &ConversationRequest::shared()
{
    return sharedInstance<ConversationRequest>();
}

void ConversationRequest::set(const Request &request)
{
    m_request = request;
    Q_EMIT requested();
}

} // namespace tolvane
