// SPDX-License-Identifier: MIT
#include "http/listeningsocket.h"

#include <array>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tolvane::backend {

namespace {

constexpr int backlog = 1024;

struct Names
{
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> service{};
};

template <typename AddressOf>
Names namesOf(AddressOf addressOf, int socket)
{
    sockaddr_storage storage{};
    socklen_t size = sizeof(storage);
    auto *const address = reinterpret_cast<sockaddr *>(&storage);
    Names names;
    if (addressOf(socket, address, &size) == 0)
        getnameinfo(address, size, names.host.data(), names.host.size(), names.service.data(),
                    names.service.size(), NI_NUMERICHOST | NI_NUMERICSERV);
    return names;
}

} // namespace

int listenOn(const std::string &host, int port)
{
    addrinfo hints{};
    hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &hints, &found) != 0)
        return -1;
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, &freeaddrinfo);
    for (const addrinfo *each = found; each; each = each->ai_next) {
        const int listener = ::socket(each->ai_family, each->ai_socktype | SOCK_CLOEXEC, 0);
        const int yes = 1;
        ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
        if (::bind(listener, each->ai_addr, each->ai_addrlen) == 0 &&
            ::listen(listener, backlog) == 0)
            return listener;
        ::close(listener);
    }
    return -1;
}

int portOf(int socket)
{
    return std::atoi(namesOf(::getsockname, socket).service.data());
}

std::string remoteAddressOf(int socket)
{
    return namesOf(::getpeername, socket).host.data();
}

bool isClosedByClient(int socket)
{
    pollfd event{socket, POLLRDHUP, 0};
    return ::poll(&event, 1, 0) > 0;
}

} // namespace tolvane::backend
