// SPDX-License-Identifier: MIT
#include "platform/network/bufferedsockets.h"

namespace tolvane {

QList<QNetworkProxy> BufferedSockets::queryProxy(const QNetworkProxyQuery &query)
{
    QList<QNetworkProxy> proxies = proxyForQuery(query);
    for (QNetworkProxy &proxy : proxies) {
        if (proxy.type() == QNetworkProxy::NoProxy && query.protocolTag() == QLatin1String("http"))
            proxy = QNetworkProxy(QNetworkProxy::DefaultProxy);
    }
    return proxies;
}

} // namespace tolvane
