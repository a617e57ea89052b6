// SPDX-License-Identifier: MIT
#pragma once

#include "state/supportavailability.h"

#include <QtCore/QString>

/// What the bar of a conversation says. Main thread.
namespace tolvane {

class TicketData;

namespace ticketheader {

/// Who answers: the last who did and has a name, else support; of a conversation that is about to
/// begin, that it is new.
QString title(const TicketData &ticketData);

/// Whether somebody is there. While the opening hours are not known, nobody is, and the text only
/// tells whom one writes to.
SupportAvailability subtitle(const TicketData &ticketData);

} // namespace ticketheader

} // namespace tolvane
