// SPDX-License-Identifier: MIT
#include "http/httpmessage.h"

#include <array>
#include <microhttpd.h>
#include <netdb.h>
#include <netinet/in.h>

namespace tolvane::backend {

bool Request::hasHeader(const char *name) const
{
    return MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name) != nullptr;
}

std::string Request::header(const char *name) const
{
    const char *const value = MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
    return value ? value : "";
}

std::string Request::remoteAddress() const
{
    const sockaddr *const address =
        MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CLIENT_ADDRESS)->client_addr;
    const auto size = static_cast<socklen_t>(address->sa_family == AF_INET6 ? sizeof(sockaddr_in6)
                                                                            : sizeof(sockaddr_in));
    std::array<char, NI_MAXHOST> name{};
    getnameinfo(address, size, name.data(), name.size(), nullptr, 0, NI_NUMERICHOST);
    return name.data();
}

} // namespace tolvane::backend
