// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <httplib.h>
#include <string>

namespace tolvane::backend {

/// The stream of a connection. The destructor closes the socket.
class SocketStream final : public httplib::Stream
{
public:
    SocketStream(socket_t socket, std::chrono::milliseconds timeout);
    ~SocketStream() override;

    bool hasBuffered() const { return m_begin < m_end; }
    /// Records the bytes that are read from now on, until takeHead().
    void recordHead();
    /// Returns the request line and the headers, unmodified.
    std::string takeHead();

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char *to, size_t size) override;
    ssize_t write(const char *from, size_t size) override;
    void get_remote_ip_and_port(std::string &ip, int &port) const override;
    void get_local_ip_and_port(std::string &ip, int &port) const override;
    socket_t socket() const override { return m_socket; }

private:
    bool waitFor(short events) const;
    ssize_t receive(char *to, size_t size);

    const socket_t m_socket;
    const std::chrono::milliseconds m_timeout;
    std::array<char, 16'384> m_buffer{};
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::string m_head;
    bool m_recordsHead = false;
};

} // namespace tolvane::backend
