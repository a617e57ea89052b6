// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QString>
#include <QtNetwork/QHostAddress>

#include <functional>

class QObject;

namespace tolvane {

using Addresses = QList<QHostAddress>;

/// True if a URL in a message may be loaded, given the addresses of its host and of the backend.
/// Agents, and attackers who write in their name, must not reach the customer's own network through
/// the customer's device. Therefore private and link-local addresses are allowed only if the
/// backend is in a private network, and addresses of the device itself only if the backend is on
/// the device.
TOLVANE_AUTOTEST_EXPORT bool mayReach(const Addresses &target, const Addresses &backend);

/// Looks up the addresses of a host, an empty list if it is unknown. Calls back on this thread, at
/// once if the host is an address, and never after the context is destroyed.
void findAddresses(const QString &host, QObject *context,
                   const std::function<void(const Addresses &)> &found);

} // namespace tolvane
