// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtCore/QVariantMap>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkRequest>

class QNetworkReply;

/// Listens for a device's pushes at the local backend, which sends them as server-sent events.
/// Comes back after a break and misses nothing. A host in the field has its platform's push
/// service.
class PushClient : public QObject
{
    Q_OBJECT

public:
    explicit PushClient(const QUrl &url);
    ~PushClient() override;

Q_SIGNALS:
    void pushed(const QVariantMap &payload);

private:
    void listen();
    void read();
    void readLine(const QByteArray &line);
    void comeBack();

    QNetworkRequest m_request;
    QNetworkAccessManager m_network;
    QNetworkReply *m_reply = nullptr;
    QByteArray m_data;
    QByteArray m_id;
    QTimer m_pause;
};
