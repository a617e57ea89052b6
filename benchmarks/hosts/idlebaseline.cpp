// SPDX-License-Identifier: MIT
#include <QtCore/QCoreApplication>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

#include <cstdio>

int main(int argc, char **argv)
{
    const QCoreApplication app(argc, argv);
    QNetworkAccessManager manager;
    const QUrl url(qEnvironmentVariable("TOLVANE_API_URL") + QStringLiteral("/settings?updatedAt"));
    QNetworkReply *reply = manager.get(QNetworkRequest(url));
    QObject::connect(reply, &QNetworkReply::finished, [reply] {
        reply->deleteLater();
        std::puts("done");
        std::fflush(stdout);
    });
    return QCoreApplication::exec();
}
