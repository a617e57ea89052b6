// SPDX-License-Identifier: MIT
#include "support.h"

#include <tolvane/tolvane.h>

#include <QtCore/QRegularExpression>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using tolvane::Tolvane;

Support::Support()
{
    m_away.setSingleShot(true);
    m_away.setInterval(12s);
    connect(&m_away, &QTimer::timeout, this, &Support::dismiss);
}

void Support::receive(const QVariantMap &payload)
{
    // The messenger, where it is open, shows by itself what has arrived.
    if (Tolvane::willPresentNotification(payload) != tolvane::PresentationOptions::soundAndBanner)
        return;
    // A message, or a conversation whose state has changed.
    const QVariantMap ticket = payload.value(u"ticketPreview"_s).toMap();
    const QVariantMap message =
        (ticket.isEmpty() ? payload.value(u"message"_s) : ticket.value(u"lastMessage"_s)).toMap();
    // Banners show no Markdown.
    static const QRegularExpression marks(u"[*`~]"_s);
    m_payload = payload;
    m_title = message.value(u"sender"_s).toMap().value(u"name"_s, u"Support"_s).toString();
    m_text = message.value(u"content"_s).toString().remove(marks).simplified().left(200);
    m_isShown = true;
    m_away.start();
    Q_EMIT changed();
}

void Support::open()
{
    Tolvane::open();
}

void Support::tap()
{
    dismiss();
    Tolvane::handlePushNotification(m_payload);
}

void Support::dismiss()
{
    m_isShown = false;
    m_away.stop();
    Q_EMIT changed();
}
