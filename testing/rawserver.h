// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>
#include <QtNetwork/QSslSocket>

#include <atomic>
#include <functional>
#include <thread>

namespace tolvane::test {

/// An HTTP or HTTPS server on loopback that writes as fast as the other side reads, on a thread of
/// its own. It serves one connection at a time. The certificate is trusted in the process from the
/// first server on.
class RawServer
{
public:
    /// One accepted connection.
    class Connection
    {
    public:
        /// Blocks until all is written. Returns false once the other side or the server has gone.
        bool write(QByteArrayView bytes) const;

    private:
        friend class RawServer;
        QSslSocket &socket;
        const std::atomic<bool> &isStopped;
        Connection(QSslSocket &s, const std::atomic<bool> &stopped);
    };

    /// `respond` runs on the server's thread, after the head of the first request.
    RawServer(const QString &scheme, std::function<void(const Connection &)> respond);
    ~RawServer();
    RawServer(const RawServer &) = delete;
    RawServer &operator=(const RawServer &) = delete;

    QString url() const { return m_url; }

private:
    void serve(qintptr socket);

    const QString m_scheme;
    const std::function<void(const Connection &)> m_respond;
    QString m_url;
    std::atomic<bool> m_isStopped = false;
    std::thread m_thread;
};

} // namespace tolvane::test
