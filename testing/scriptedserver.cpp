// SPDX-License-Identifier: MIT
#include "testing/scriptedserver.h"

#include <QtNetwork/QTcpSocket>

#include <sys/socket.h>

namespace tolvane::test {

QByteArray ServedRequest::header(const QByteArray &name) const
{
    for (const auto &[key, value] : headers) {
        if (key == name)
            return value;
    }
    return {};
}

ScriptedServer::ScriptedServer()
{
    if (!listen(QHostAddress::LocalHost))
        qFatal("The scripted server cannot listen: %s", qPrintable(errorString()));
    connect(this, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket *socket = nextPendingConnection()) {
            ++connectionCount;
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(*socket); });
            connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
                m_buffers.remove(socket);
                socket->deleteLater();
            });
        }
    });
}

QString ScriptedServer::url(const QString &path) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path);
}

QByteArray ScriptedServer::response(int status, const QByteArray &body,
                                    const QList<QByteArray> &headers)
{
    QByteArray text = "HTTP/1.1 " + QByteArray::number(status) + " Status\r\n";
    for (const QByteArray &header : headers)
        text += header + "\r\n";
    const bool hasBody = status != 304 && status != 204;
    if (hasBody)
        text += "Content-Length: " + QByteArray::number(body.size()) + "\r\n";
    return text + "\r\n" + (hasBody ? body : QByteArray());
}

void ScriptedServer::reset(QTcpSocket &socket)
{
    socket.flush();
    const linger atOnce{.l_onoff = 1, .l_linger = 0};
    setsockopt(static_cast<int>(socket.socketDescriptor()), SOL_SOCKET, SO_LINGER, &atOnce,
               sizeof atOnce);
    socket.abort();
}

void ScriptedServer::read(QTcpSocket &socket)
{
    QByteArray &buffer = m_buffers[&socket];
    buffer += socket.readAll();
    const qsizetype headEnd = buffer.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return;
    ServedRequest request;
    QList<QByteArray> lines = buffer.left(headEnd).split('\n');
    const QList<QByteArray> first = lines.takeFirst().trimmed().split(' ');
    request.method = first.value(0);
    request.target = first.value(1);
    for (const QByteArray &line : std::as_const(lines)) {
        const qsizetype colon = line.indexOf(':');
        request.headers.append({line.left(colon).toLower(), line.mid(colon + 1).trimmed()});
    }
    const qsizetype length = request.header("content-length").toLongLong();
    if (buffer.size() < headEnd + 4 + length)
        return;
    request.body = buffer.mid(headEnd + 4, length);
    buffer.remove(0, headEnd + 4 + length);
    requests.append(request);
    handler(request, socket);
}

} // namespace tolvane::test
