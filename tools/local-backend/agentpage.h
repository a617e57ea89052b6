// SPDX-License-Identifier: MIT
#pragma once

#include "routing.h"

namespace tolvane::backend {

/// Answers with the agent page or one of its files. Throws a Refusal.
void answerWithPage(const Call &call);

} // namespace tolvane::backend
