// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtNetwork/QTcpServer>

#include <functional>

class QTcpSocket;

namespace tolvane::test {

/// A request that a ScriptedServer has read. Header names are in lower case.
struct ServedRequest
{
    QByteArray method;
    QByteArray target;
    QList<QPair<QByteArray, QByteArray>> headers;
    QByteArray body;

    QByteArray header(const QByteArray &name) const;
};

/// An HTTP/1.1 server on loopback that sends the bytes that a test chooses, valid HTTP or not.
class ScriptedServer final : public QTcpServer
{
public:
    ScriptedServer();

    /// Called for each complete request. It may write anything to the socket, break the connection
    /// or do nothing. Connections are kept alive.
    std::function<void(const ServedRequest &, QTcpSocket &)> handler;

    QList<ServedRequest> requests;
    int connectionCount = 0;

    /// "http://127.0.0.1:PORT" and the path.
    QString url(const QString &path = {}) const;

    /// A complete response with its Content-Length.
    static QByteArray response(int status, const QByteArray &body,
                               const QList<QByteArray> &headers = {});

    /// Resets a connection, as a crashed server or a middlebox does.
    static void reset(QTcpSocket &socket);

private:
    void read(QTcpSocket &socket);

    QMap<QTcpSocket *, QByteArray> m_buffers;
};

} // namespace tolvane::test
