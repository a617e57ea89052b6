// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtCore/QVariantMap>

/// The host's side of the messenger: opens it, and shows its pushes as a banner of the host's own.
class Support : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isShown READ isShown NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)

public:
    Support();

    bool isShown() const { return m_isShown; }
    QString title() const { return m_title; }
    QString text() const { return m_text; }

    /// A push that has arrived while the host is in the foreground.
    void receive(const QVariantMap &payload);

public Q_SLOTS:
    void open();
    /// The banner was tapped.
    void tap();
    void dismiss();

Q_SIGNALS:
    void changed();

private:
    QVariantMap m_payload;
    QString m_title;
    QString m_text;
    QTimer m_away;
    bool m_isShown = false;
};
