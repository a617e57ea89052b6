// SPDX-License-Identifier: MIT
#include "host/pushchannel.h"

#include "backend/configuration.h"
#include "host/attachments.h"
#include "platform/platform.h"

#include <tolvane/tolvane.h>

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRandomGenerator>
#include <QtNetwork/QNetworkReply>

#include <array>

namespace tolvane::console {

namespace {

using namespace std::chrono_literals;

constexpr auto retryInterval = 1s;
// The service sends a comment at least every 15 seconds.
constexpr std::chrono::milliseconds silenceTimeout = 45s;

} // namespace

PushChannel::PushChannel(const QUrl &url, const QString &key)
    : m_request(url)
{
    m_request.setRawHeader("Authorization", "Bearer " + key.toUtf8());
    m_request.setRawHeader("Accept", "text/event-stream");
    m_request.setTransferTimeout(static_cast<int>(silenceTimeout.count()));
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &PushChannel::open);
    open();
}

PushChannel::~PushChannel()
{
    if (m_reply)
        m_reply->disconnect(this);
}

void PushChannel::open()
{
    m_stream = EventStream(m_stream.lastId());
    if (!m_stream.lastId().isEmpty())
        m_request.setRawHeader("Last-Event-ID", m_stream.lastId());
    m_reply = m_network.get(m_request);
    connect(m_reply, &QNetworkReply::readyRead, this, &PushChannel::read);
    connect(m_reply, &QNetworkReply::finished, this, &PushChannel::reopen);
}

void PushChannel::read()
{
    if (m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != 200)
        return;
    m_isDown = false;
    const QList<QByteArray> events = m_stream.read(m_reply->readAll());
    for (const QByteArray &event : events)
        deliver(event);
}

void PushChannel::deliver(const QByteArray &event)
{
    const QJsonDocument payload = QJsonDocument::fromJson(event);
    if (payload.isObject())
        Q_EMIT pushed(payload.object().toVariantMap());
    else
        Q_EMIT statusChanged(QStringLiteral("Skipped a push that is not a JSON object"));
}

void PushChannel::reopen()
{
    const bool isBroken = m_reply->error() != QNetworkReply::NoError;
    // Reported once per interruption, not for each attempt.
    if (isBroken && !m_isDown) {
        Q_EMIT statusChanged(QStringLiteral("The push service is unavailable (%1); retrying")
                                 .arg(m_reply->errorString()));
    }
    m_isDown = isBroken;
    m_reply->deleteLater();
    m_reply = nullptr;
    m_pause.start(retryInterval);
}

std::unique_ptr<PushChannel> registerDevice()
{
    const auto backend = platform().environmentVariable("TOLVANE_API_URL");
    if (!backend)
        throw CommandError(
            QStringLiteral("Pushes need a local backend: set TOLVANE_API_URL to its address"));
    std::array<quint32, 8> random{};
    QRandomGenerator::system()->fillRange(random.data(), random.size());
    const QByteArray token(reinterpret_cast<const char *>(random.data()), sizeof(random));
    Tolvane::setDeviceToken(token);
    return std::make_unique<PushChannel>(
        QUrl(*backend + QStringLiteral("/push/") + QString::fromLatin1(token.toHex())),
        Configuration::shared().apiKey().value_or(QString()));
}

} // namespace tolvane::console
