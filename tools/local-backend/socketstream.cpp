// SPDX-License-Identifier: MIT
#include "socketstream.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace tolvane::backend {

namespace {

// httplib limits the length of a header line, but not the number of lines.
constexpr std::size_t maxHeadSize = 65'536;

template <typename Function>
auto retryInterrupted(Function function)
{
    auto result = function();
    while (result < 0 && errno == EINTR)
        result = function();
    return result;
}

template <typename NameOf>
void resolve(NameOf nameOf, socket_t socket, std::string &ip, int &port)
{
    sockaddr_storage storage{};
    socklen_t size = sizeof(storage);
    auto *const address = reinterpret_cast<sockaddr *>(&storage);
    std::array<char, NI_MAXHOST> host{};
    std::array<char, NI_MAXSERV> service{};
    const bool known = nameOf(socket, address, &size) == 0 &&
                       getnameinfo(address, size, host.data(), host.size(), service.data(),
                                   service.size(), NI_NUMERICHOST | NI_NUMERICSERV) == 0;
    if (!known)
        return;
    ip = host.data();
    port = std::atoi(service.data());
}

} // namespace

SocketStream::SocketStream(socket_t socket, std::chrono::milliseconds timeout)
    : m_socket(socket)
    , m_timeout(timeout)
{
}

SocketStream::~SocketStream()
{
    ::shutdown(m_socket, SHUT_RDWR);
    ::close(m_socket);
}

void SocketStream::recordHead()
{
    m_head.clear();
    m_recordsHead = true;
}

std::string SocketStream::takeHead()
{
    m_recordsHead = false;
    return std::move(m_head);
}

bool SocketStream::is_readable() const
{
    return hasBuffered() || waitFor(POLLIN);
}

bool SocketStream::is_writable() const
{
    return waitFor(POLLOUT);
}

ssize_t SocketStream::read(char *to, size_t size)
{
    if (!hasBuffered()) {
        const ssize_t received = receive(m_buffer.data(), m_buffer.size());
        if (received <= 0)
            return received;
        m_begin = 0;
        m_end = static_cast<std::size_t>(received);
    }
    const std::size_t count = std::min(size, m_end - m_begin);
    std::memcpy(to, m_buffer.data() + m_begin, count);
    m_begin += count;
    if (m_recordsHead) {
        m_head.append(to, count);
        if (m_head.size() > maxHeadSize)
            return -1;
    }
    return static_cast<ssize_t>(count);
}

ssize_t SocketStream::write(const char *from, size_t size)
{
    if (!waitFor(POLLOUT))
        return -1;
    return retryInterrupted([&] { return ::send(m_socket, from, size, MSG_NOSIGNAL); });
}

void SocketStream::get_remote_ip_and_port(std::string &ip, int &port) const
{
    resolve(::getpeername, m_socket, ip, port);
}

void SocketStream::get_local_ip_and_port(std::string &ip, int &port) const
{
    resolve(::getsockname, m_socket, ip, port);
}

bool SocketStream::waitFor(short events) const
{
    pollfd socket{m_socket, events, 0};
    const int timeout = static_cast<int>(m_timeout.count());
    return retryInterrupted([&] { return ::poll(&socket, 1, timeout); }) > 0;
}

ssize_t SocketStream::receive(char *to, size_t size)
{
    if (!waitFor(POLLIN))
        return -1;
    return retryInterrupted([&] { return ::recv(m_socket, to, size, 0); });
}

} // namespace tolvane::backend
