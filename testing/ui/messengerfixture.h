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

inline BrandingDto branding()
{
    BrandingDto branding;
    forEachField<BrandingDto>([&](const auto &field) {
        if constexpr (std::is_same_v<std::decay_t<decltype(branding.*field.member)>, QString>)
            branding.*field.member = u"#205d4e"_s;
    });
    return branding;
}

/// A host with a window and a backend, which can show the messenger.
struct MessengerFixture : Fixture
{
    MessengerFixture()
    {
        setKey();
        session->handler = [this](const UrlRequest &request) -> UrlResponse {
            if (request.url.path().endsWith(u"/settings"_s))
                return answer(branding());
            if (isFailing)
                throw UrlError(UrlError::notConnectedToInternet);
            return test::json(listJson);
        };
        host.resize(400, 700);
        host.setColor(Qt::blue);
        field = new QQuickItem(host.contentItem());
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
        QList<QByteArray> rows;
        for (const QString &id : ids)
            rows += tolvane::json::encode(makePreview(id));
        listJson = '[' + rows.join(',') + ']';
    }

    QQuickItem *messenger() const
    {
        for (QQuickItem *item : host.contentItem()->childItems()) {
            if (item->property("screen").isValid())
                return item;
        }
        return nullptr;
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
    QByteArray listJson = "[]";
    bool isFailing = false;
};

} // namespace tolvane::test
