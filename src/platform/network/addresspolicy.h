// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>
#include <QtNetwork/QHostAddress>

#include <functional>

class QObject;

namespace tolvane {

using Addresses = QList<QHostAddress>;

/// Whether the library loads something that a message names from these addresses of a host. An
/// agent, or whoever writes as one, must not reach the customer's own network through the
/// customer's device. Therefore private and link-local addresses are for backends in a private
/// network, and addresses of the device itself for backends on the device.
TOLVANE_AUTOTEST_EXPORT bool mayReach(const Addresses &target, const Addresses &backend);

/// Looks up the addresses of a host, none if it is unknown. Calls back on this thread, at once for
/// an address, and never after the context is destroyed.
void findAddresses(const QString &host, QObject *context,
                   const std::function<void(const Addresses &)> &found);

} // namespace tolvane
