// SPDX-License-Identifier: MIT
#pragma once

#include <QtNetwork/QNetworkProxyFactory>

namespace tolvane {

/// The application's proxies, for a QNetworkAccessManager that must be able to abort.
///
/// For plain HTTP without a proxy, the network stack reads from an unbuffered socket until nothing
/// is left to read. A fast server that sends an endless response head would keep the stack's thread
/// in that loop for ever: time-outs and aborts would have no effect. The stack buffers the socket
/// if it may have a proxy, as the default proxy might be one. Then it reads the bytes that have
/// arrived, and returns to its event loop.
class BufferedSockets final : public QNetworkProxyFactory
{
public:
    QList<QNetworkProxy> queryProxy(const QNetworkProxyQuery &query) override;
};

} // namespace tolvane
