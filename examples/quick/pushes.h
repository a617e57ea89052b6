// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantMap>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkRequest>

#include <memory>

class Support;

/// Receives a device's pushes from the local backend, which sends them as server-sent events.
/// Reconnects after an interruption without losing a push. A real host uses the push service of its
/// platform instead.
class Pushes : public QObject
{
    Q_OBJECT

public:
    /// Registers the device with the library and passes its pushes on. Does nothing without a token
    /// or without TOLVANE_API_URL.
    /// @param token in hexadecimal digits
    static std::unique_ptr<Pushes> listen(const QString &token, Support &support);

Q_SIGNALS:
    void received(const QVariantMap &payload);

private:
    explicit Pushes(const QUrl &url);
    void connectToBackend();
    void readLine(const QByteArray &line);

    QNetworkRequest m_request;
    QByteArray m_data;
    QByteArray m_id;
    QNetworkAccessManager m_network;
};
