// SPDX-License-Identifier: MIT
#pragma once

#include "state/times/supportavailability.h"

#include <QtCore/QString>

/// Title and subtitle in the bar of a conversation. Main thread.
namespace tolvane {

class TicketData;

namespace ticketheader {

/// The name of the last sender who has a name and is not the customer, as one isolated line, else
/// the name of the support. A new conversation has a title of its own.
QString title(const TicketData &ticketData);

/// Whether support is available. Without opening hours it is unavailable, and the text is the name
/// of the support team.
SupportAvailability subtitle(const TicketData &ticketData);

} // namespace ticketheader

} // namespace tolvane
