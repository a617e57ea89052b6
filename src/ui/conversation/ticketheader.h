// SPDX-License-Identifier: MIT
#pragma once

#include "state/supportavailability.h"

#include <QtCore/QString>

/// Title and subtitle in the bar of a conversation. Main thread.
namespace tolvane {

class TicketData;

namespace ticketheader {

/// The name of the last sender other than the customer who has one, else the name of support. The
/// title of a conversation that has not begun yet says that it is new.
QString title(const TicketData &ticketData);

/// Whether support is available. While the opening hours are unknown it is not, and the text only
/// names the support team.
SupportAvailability subtitle(const TicketData &ticketData);

} // namespace ticketheader

} // namespace tolvane
