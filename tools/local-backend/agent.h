// SPDX-License-Identifier: MIT
#pragma once

#include "records.h"

#include <string>
#include <string_view>

namespace tolvane::backend {

/// One message of a customer's, as its agent sees it.
struct Turn
{
    Author assignee = Author::Ai;
    std::string_view text;
    int attachmentCount = 0;
    /// Whether the customer has written again since, and so is not done yet.
    bool isOvertaken = false;
    /// Like "Mon, Tue 09:00-18:00".
    std::string_view openingHours;
};

enum class Effect { None, HandOver, Close };

struct Answer
{
    std::string text;
    Effect effect = Effect::None;
};

/// What the agent answers. Depends on nothing but the turn.
Answer answerTo(const Turn &turn);

/// With what the human agent takes over.
std::string introduction();

} // namespace tolvane::backend
