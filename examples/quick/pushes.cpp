// SPDX-License-Identifier: MIT
#include "pushes.h"

#include "support.h"

#include <tolvane/tolvane.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkReply>

std::unique_ptr<Pushes> Pushes::listen(const QString &token, Support &support)
{
    const QString backend = qEnvironmentVariable("TOLVANE_API_URL");
    if (token.isEmpty() || backend.isEmpty())
        return nullptr;
    tolvane::Tolvane::setDeviceToken(QByteArray::fromHex(token.toLatin1()));
    std::unique_ptr<Pushes> pushes(new Pushes(QUrl(backend + QStringLiteral("/push/") + token)));
    connect(pushes.get(), &Pushes::received, &support, &Support::receivePush);
    return pushes;
}

Pushes::Pushes(const QUrl &url)
    : m_request(url)
{
    m_request.setTransferTimeout(45'000); // The backend sends something every 15 seconds.
    m_request.setRawHeader("Authorization", "Bearer demo-key");
    connectToBackend();
}

void Pushes::connectToBackend()
{
    QNetworkReply *reply = m_network.get(m_request);
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] {
        while (reply->canReadLine())
            readLine(reply->readLine().trimmed());
    });
    connect(reply, &QNetworkReply::finished, this, [this, reply] {
        reply->deleteLater();
        m_data.clear();
        QTimer::singleShot(1000, this, &Pushes::connectToBackend);
    });
}

// The backend writes the data of an event in one line. An empty line ends the event.
void Pushes::readLine(const QByteArray &line)
{
    if (line.startsWith("data: ")) {
        m_data = line.mid(6);
    } else if (line.startsWith("id: ")) {
        m_id = line.mid(4);
    } else if (line.isEmpty() && !m_data.isEmpty()) {
        m_request.setRawHeader("Last-Event-ID", m_id);
        Q_EMIT received(QJsonDocument::fromJson(m_data).object().toVariantMap());
        m_data.clear();
    }
}
