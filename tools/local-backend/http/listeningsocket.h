// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace tolvane::backend {

/// Listens on an address of this machine. Returns -1 on failure. Port 0 picks a free port.
int listenOn(const std::string &host, int port);
int portOf(int socket);
/// The numeric address of the other side.
std::string remoteAddressOf(int socket);
bool isClosedByClient(int socket);

} // namespace tolvane::backend
