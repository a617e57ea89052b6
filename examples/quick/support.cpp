// SPDX-License-Identifier: MIT
#include "support.h"

#include <tolvane/tolvane.h>

#include <QtCore/QRegularExpression>

using namespace Qt::StringLiterals;
using tolvane::Tolvane;

void Support::receivePush(const QVariantMap &payload)
{
    // While the messenger is open, it shows new messages itself.
    if (Tolvane::willPresentNotification(payload) != tolvane::PresentationOptions::soundAndBanner)
        return;
    // The push has a message, or a conversation whose state has changed.
    const QVariantMap ticket = payload.value(u"ticketPreview"_s).toMap();
    const QVariantMap message =
        (ticket.isEmpty() ? payload.value(u"message"_s) : ticket.value(u"lastMessage"_s)).toMap();
    static const QRegularExpression link(u"\\[([^\\]]*)\\]\\([^)]*\\)"_s);
    static const QRegularExpression marks(u"[*`~]|\\b__|__\\b"_s);
    m_payload = payload;
    m_title = message.value(u"sender"_s).toMap().value(u"name"_s, u"Support"_s).toString();
    const QString content = message.value(u"content"_s).toString().left(2000);
    m_text = QString(content).replace(link, u"\\1"_s).remove(marks).simplified().left(200);
    Q_EMIT pushReceived();
}

void Support::openPush()
{
    Tolvane::handlePushNotification(m_payload);
}
