// SPDX-License-Identifier: MIT
#pragma once

#include "state/navigation/destination.h"

#include <QtCore/QObject>

#include <memory>
#include <optional>
#include <utility>

namespace tolvane {

/// The conversation that the host wants the messenger to show. Main thread.
class TOLVANE_PRIVATE_EXPORT ConversationRequest final : public QObject
{
    Q_OBJECT

public:
    struct Request
    {
        TolvaneDestination destination;
        /// The text for the composer of a new conversation.
        QString text;
    };

    static const std::shared_ptr<ConversationRequest> &shared();

    /// An open messenger takes the request at once. A closed one takes it when it opens.
    void set(const Request &request);
    /// Returns the request and clears it.
    std::optional<Request> take() { return std::exchange(m_request, std::nullopt); }

Q_SIGNALS:
    void requested();

private:
    std::optional<Request> m_request;
};

} // namespace tolvane
