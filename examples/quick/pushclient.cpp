// SPDX-License-Identifier: MIT
#include "pushclient.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtNetwork/QNetworkReply>

#include <chrono>

using namespace std::chrono_literals;

PushClient::PushClient(const QUrl &url)
    : m_request(url)
{
    // The backend lets hear of itself every 15 seconds.
    m_request.setTransferTimeout(45'000);
    m_request.setRawHeader("Authorization", "Bearer demo-key");
    m_request.setRawHeader("Accept", "text/event-stream");
    m_pause.setSingleShot(true);
    m_pause.setInterval(1s);
    connect(&m_pause, &QTimer::timeout, this, &PushClient::listen);
    listen();
}

PushClient::~PushClient()
{
    if (m_reply)
        m_reply->disconnect(this);
}

void PushClient::listen()
{
    m_data.clear();
    m_reply = m_network.get(m_request);
    connect(m_reply, &QNetworkReply::readyRead, this, &PushClient::read);
    connect(m_reply, &QNetworkReply::finished, this, &PushClient::comeBack);
}

void PushClient::read()
{
    while (m_reply->canReadLine())
        readLine(m_reply->readLine().trimmed());
}

// The backend writes an event in one line of data, with an empty line behind.
void PushClient::readLine(const QByteArray &line)
{
    if (line.startsWith("data: ")) {
        m_data = line.mid(6);
    } else if (line.startsWith("id: ")) {
        m_id = line.mid(4);
    } else if (line.isEmpty() && !m_data.isEmpty()) {
        m_request.setRawHeader("Last-Event-ID", m_id);
        Q_EMIT pushed(QJsonDocument::fromJson(m_data).object().toVariantMap());
        m_data.clear();
    }
}

void PushClient::comeBack()
{
    m_reply->deleteLater();
    m_reply = nullptr;
    m_pause.start();
}
