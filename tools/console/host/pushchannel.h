// SPDX-License-Identifier: MIT
#pragma once

#include "host/eventstream.h"

#include <QtCore/QTimer>
#include <QtCore/QVariantMap>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkRequest>

#include <memory>

namespace tolvane::console {

/// The host's own connection to its push service, independent of the library. Reconnects after an
/// interruption without losing a push.
class PushChannel final : public QObject
{
    Q_OBJECT

public:
    PushChannel(const QUrl &url, const QString &key);
    ~PushChannel() override;

Q_SIGNALS:
    void pushed(const QVariantMap &payload);
    /// A message about the connection, to show to the user.
    void statusChanged(const QString &text);

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

/// Registers a new device token with the library and listens for its pushes. Throws CommandError
/// without a local backend, which alone can push to the console.
std::unique_ptr<PushChannel> registerDevice();

} // namespace tolvane::console
