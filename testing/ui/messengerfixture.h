// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "platform/platform.h"
#include "state/notifications.h"
#include "state/sdkdata.h"
#include "testing/samplerecords.h"
#include "ui/presentation/viewcontroller.h"

#include <QtQuick/QQuickView>
#include <QtTest/QTest>

namespace tolvane::test {

using namespace Qt::StringLiterals;

/// A host with a window and a backend, which can show the messenger.
struct MessengerFixture : Fixture
{
    MessengerFixture()
    {
        setKey();
        session->handler = [this](const UrlRequest &request) -> UrlResponse {
            if (request.url.path().endsWith(u"/settings"_s))
                return jsonResponse(sampleBranding());
            if (isFailing)
                throw UrlError(UrlError::notConnectedToInternet);
            return test::json(listJson);
        };
        host.resize(400, 700);
        host.setColor(Qt::blue);
        field = new QQuickItem(host.contentItem());
        field->setActiveFocusOnTab(true);
    }

    bool showHost()
    {
        host.show();
        host.requestActivate();
        field->forceActiveFocus();
        return QTest::qWaitForWindowActive(&host);
    }

    void loadSettings()
    {
        detach(SdkData::shared()->fetchSettings());
        settle();
    }

    void setTickets(const QList<QString> &ids)
    {
        QList<TicketPreviewDto> tickets;
        for (const QString &id : ids)
            tickets += makePreview(id);
        listJson = encodeList(tickets);
    }

    QQuickItem *messenger() const
    {
        for (QQuickItem *item : (place ? place : host.contentItem())->childItems()) {
            if (item->property("screen").isValid())
                return item;
        }
        return nullptr;
    }

    /// True once the messenger has stopped sliding.
    bool isInPlace() const
    {
        const QQuickItem *item = messenger();
        return item && std::ranges::all_of(item->childItems(),
                                           [](const QQuickItem *child) { return child->y() == 0; });
    }

    /// The first visible item whose text begins with `text`; null without one.
    static QQuickItem *find(QQuickItem *in, const QString &text)
    {
        if (!in || !in->isVisible())
            return nullptr;
        if (in->property("text").toString().startsWith(text))
            return in;
        for (QQuickItem *child : in->childItems()) {
            if (QQuickItem *found = find(child, text))
                return found;
        }
        return nullptr;
    }
    QQuickItem *find(const QString &text) const { return find(messenger(), text); }

    /// The last visible item of a type; null without one.
    static QQuickItem *lastVisible(QQuickItem *in, const char *type)
    {
        if (!in || !in->isVisible())
            return nullptr;
        const QList<QQuickItem *> children = in->childItems();
        for (auto child = children.crbegin(); child != children.crend(); ++child) {
            if (QQuickItem *found = lastVisible(*child, type))
                return found;
        }
        return QByteArray(in->metaObject()->className()).startsWith(type) ? in : nullptr;
    }
    QQuickItem *lastVisible(const char *type) const { return lastVisible(messenger(), type); }

    qsizetype listRequests() const
    {
        return std::ranges::count_if(session->requests, [](const UrlRequest &request) {
            return request.url.path().endsWith(u"/tickets"_s);
        });
    }

    QList<bool> openStates() const
    {
        QList<bool> states;
        for (const Broadcast &broadcast : broadcasts) {
            if (broadcast.name == notifications::didChangeState)
                states += broadcast.userInfo->value(u"open"_s).toBool();
        }
        return states;
    }

    QQuickView host;
    QQuickItem *field;
    /// The host's item that shows the messenger; null if its window does.
    QQuickItem *place = nullptr;
    QByteArray listJson = "[]";
    bool isFailing = false;
};

} // namespace tolvane::test
