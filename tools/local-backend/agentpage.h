// SPDX-License-Identifier: MIT
#pragma once

#include "routing.h"

namespace tolvane::backend {

/// Answers with the agents' page, or a file of it. Throws a Refusal.
void answerWithPage(const Call &call);

} // namespace tolvane::backend
