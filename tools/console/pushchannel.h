// SPDX-License-Identifier: MIT
#pragma once

#include "eventstream.h"

#include <QtCore/QTimer>
#include <QtCore/QVariantMap>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkRequest>

#include <memory>

namespace tolvane::console {

/// The host's connection to its push service, which it talks to by itself. Comes back after a break
/// and misses nothing.
class PushChannel final : public QObject
{
    Q_OBJECT

public:
    PushChannel(const QUrl &url, const QString &key);
    ~PushChannel() override;

Q_SIGNALS:
    void pushed(const QVariantMap &payload);
    /// Something that a person should know.
    void noted(const QString &text);

private:
    void open();
    void read();
    void deliver(const QByteArray &event);
    void reopen();

    QNetworkRequest m_request;
    QNetworkAccessManager m_network;
    QNetworkReply *m_reply = nullptr;
    EventStream m_stream;
    QTimer m_pause;
    bool m_isDown = false;
};

/// Registers a device with the library, a new one each time, and listens for its pushes. Throws a
/// CommandError when there is nobody to push.
std::unique_ptr<PushChannel> registerDevice();

} // namespace tolvane::console
