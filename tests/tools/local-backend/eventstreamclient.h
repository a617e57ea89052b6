// SPDX-License-Identifier: MIT
#pragma once

#include "runningbackend.h"

#include <QtNetwork/QTcpSocket>

/// A client of an event stream. Each event and each heartbeat arrives in one piece.
class EventStreamClient
{
public:
    EventStreamClient(const RunningBackend &backend, const QByteArray &path,
                      const QByteArray &last = {})
    {
        m_socket.connectToHost(QStringLiteral("127.0.0.1"), quint16(backend.port()));
        m_socket.write("GET " + path +
                       " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(backend.port()) +
                       "\r\nLast-Event-ID: " + last + "\r\n\r\n");
    }

    const QByteArray &received() { return m_received += m_socket.readAll(); }

    /// The values of the lines that begin with the name.
    QByteArrayList lines(const QByteArray &name)
    {
        QByteArrayList found;
        for (const QByteArray &line : received().split('\n')) {
            if (line.startsWith(name))
                found += line.mid(name.size()).trimmed();
        }
        return found;
    }

    /// The contents of the messages and the states of the tickets, joined.
    QByteArray digest()
    {
        QByteArray text;
        for (const QJsonObject &payload : payloads()) {
            text += payload[QLatin1String("message")][QLatin1String("content")].toString().toUtf8();
            text +=
                payload[QLatin1String("ticketPreview")][QLatin1String("state")].toString().toUtf8();
        }
        return text;
    }

    QList<QJsonObject> payloads()
    {
        QList<QJsonObject> payloads;
        for (const QByteArray &data : lines("data: "))
            payloads += QJsonDocument::fromJson(data).object();
        return payloads;
    }

private:
    QTcpSocket m_socket;
    QByteArray m_received;
};
