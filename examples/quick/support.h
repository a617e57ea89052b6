// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantMap>

/// Shows the pushes of the messenger as banners of the shop.
class Support : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString title MEMBER m_title NOTIFY pushReceived)
    Q_PROPERTY(QString text MEMBER m_text NOTIFY pushReceived)

public:
    /// Passes on a push that has arrived while the shop is in the foreground.
    void receivePush(const QVariantMap &payload);

public Q_SLOTS:
    /// The customer has tapped the banner.
    void openPush();

Q_SIGNALS:
    /// A banner has to show the title and the text.
    void pushReceived();

private:
    QVariantMap m_payload;
    QString m_title;
    QString m_text;
};
