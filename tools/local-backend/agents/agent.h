// SPDX-License-Identifier: MIT
#pragma once

#include "base/records.h"

#include <string>
#include <string_view>

namespace tolvane::backend {

/// A customer's message, with the context that the scripted agent's reply depends on.
struct Turn
{
    Author assignee = Author::Ai;
    std::string_view text;
    int attachmentCount = 0;
    /// Whether the customer has already sent a newer message.
    bool hasNewerMessage = false;
    /// Like "Mon, Tue 09:00-18:00".
    std::string_view openingHours;
};

enum class Effect { None, HandOver, Close };

struct Reply
{
    std::string text;
    Effect effect = Effect::None;
};

/// The scripted agent's reply. Depends on the turn only.
Reply replyTo(const Turn &turn);

/// The scripted human agent's first message after a handover.
std::string introduction();

} // namespace tolvane::backend
