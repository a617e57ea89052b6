// SPDX-License-Identifier: MIT
#include "state/unreadtickets.h"

#include <tolvane/notifier.h>

namespace tolvane {

TolvaneNotifier::TolvaneNotifier()
{
    connect(UnreadTickets::shared().get(), &UnreadTickets::countChanged, this,
            &TolvaneNotifier::unreadCountChanged);
}

TolvaneNotifier::~TolvaneNotifier() = default;

} // namespace tolvane
