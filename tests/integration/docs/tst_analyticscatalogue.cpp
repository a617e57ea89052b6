// SPDX-License-Identifier: MIT
// The catalogue of events against a library that goes through all of them.
#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "state/navigationdata.h"
#include "state/pollingservice.h"
#include "state/sdkdata.h"
#include "state/ticketdata.h"
#include "testing/document.h"
#include "testing/samplerecords.h"
#include "ui/composer/composerdata.h"
#include "ui/home/screendata.h"
#include "ui/presentation/viewcontroller.h"

#include <tolvane/tolvane.h>

#include <QtQuick/QQuickView>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

/// One row of the catalogue: what an event of that kind carries, and what is the same each time.
struct Entry
{
    QString name;
    QSet<QString> keys;
    QMap<QString, QString> fixed;

    bool describes(const TolvaneAnalyticsEvent &event) const
    {
        QVariantMap properties = event.properties();
        for (const QString &common : {u"device_model"_s, u"os_version"_s})
            properties.remove(common);
        const QStringList present = properties.keys();
        return event.name() == name && QSet<QString>(present.begin(), present.end()) == keys &&
               std::all_of(fixed.keyBegin(), fixed.keyEnd(), [&](const QString &key) {
                   return properties.value(key).toString() == fixed.value(key);
               });
    }
};

Entry entryOf(const Document::Row &row)
{
    Entry entry{.name = Document::words(row.value(0)).value(0), .keys = {}, .fixed = {}};
    static const QRegularExpression form(u"`([a-z_]+)`(?: = \"([^\"]*)\")?"_s);
    for (const QRegularExpressionMatch &match : form.globalMatch(row.value(2))) {
        entry.keys += match.captured(1);
        if (match.hasCaptured(2))
            entry.fixed.insert(match.captured(1), match.captured(2));
    }
    return entry;
}

QList<Entry> catalogue(const Document &document)
{
    QList<Entry> entries;
    for (const Document::Row &row : document.rows(u"event"_s)) {
        const Entry entry = entryOf(row);
        if (!entry.keys.contains(u"error_context"_s)) {
            entries += entry;
            continue;
        }
        for (const Document::Row &context : document.rows(u"context"_s)) {
            Entry failure = entryOf(context);
            failure.fixed = {{u"error_context"_s, failure.name}};
            failure.name = entry.name;
            failure.keys += entry.keys;
            entries += failure;
        }
    }
    return entries;
}

BrandingDto branding()
{
    BrandingDto branding;
    branding.updatedAt = u"today"_s;
    return branding;
}

/// A host that does whatever there is to do, with a backend that does as it is told.
struct Scene : Fixture
{
    Scene()
    {
        session->handler = [this](const UrlRequest &request) { return respond(request); };
        platform().present = TolvaneViewController::presentInForeground;
        host.show();
    }

    UrlResponse respond(const UrlRequest &request) const
    {
        if (failure)
            return failure();
        const QString path = request.url.path();
        if (path.endsWith("/settings"_L1))
            return answer(branding());
        if (path.endsWith("/tickets"_L1))
            return test::json("[]");
        const bool isMessage = request.method == "POST" && path.endsWith("/t1"_L1);
        return isMessage ? answer(makeMessage(u"m2"_s))
                         : answer(makeTicket({makeMessage(u"m1"_s)}));
    }

    void startAndRegister()
    {
        Tolvane::updateCustomer(u"ada@example.org"_s, {});
        Tolvane::setDeviceToken("token");
        detach(SdkData::shared()->fetchSettings());
        settle();
    }

    void converse()
    {
        const auto fresh = std::make_shared<TicketData>(std::nullopt);
        ComposerData composer(fresh);
        for (const QString &text : {u"first"_s, u"second"_s}) {
            fresh->setMessage(text);
            composer.send();
            settle();
        }
        detach(known->fetchTicket());
        settle();
        known->setMessage(u"third"_s);
        detach(known->sendMessage());
        settle();
        const MessageDto reply = makeMessage(u"m9"_s, words::aiAgent);
        known->onMessageNotification(
            UserInfo::fromRecord(reply, tolvane::json::dictionary<MessageDto>));
        settle();
    }

    void navigate()
    {
        NavigationData navigation;
        navigation.navigate(TolvaneDestination::ticket(makePreview()));
        navigation.navigate(TolvaneDestination::newTicket());
        navigation.navigate(TolvaneDestination::imageViewer(QUrl(u"https://example.org/a.png"_s)));
    }

    /// Until nobody is left to wait for.
    void poll()
    {
        PollingService::shared()->startPolling(u"t1"_s, 1);
        settle();
        clock->advance(130s);
    }

    void openAndBePushedTo()
    {
        const QVariantMap push = {
            {u"source"_s, u"tolvane"_s},
            {u"message"_s, tolvane::json::dictionary(makeMessage(u"m3"_s, words::humanAgent))}};
        QVERIFY(QTest::qWaitForWindowExposed(&host));
        Tolvane::open();
        settle();
        Tolvane::willPresentNotification(push);
        settle();
        const auto shown = host.contentItem()->childItems();
        QVERIFY(!shown.isEmpty());
        shown.constLast()->property("screen").value<ScreenData *>()->close();
        settle();
    }

    QQuickView host;
    std::shared_ptr<TicketData> known = std::make_shared<TicketData>(makePreview());
    std::function<UrlResponse()> failure;
};

} // namespace

class AnalyticsCatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theCatalogueIsWhatIsSent()
    {
        Scene scene;
        Tolvane::initialize(u"key"_s);
        settle();
        scene.openAndBePushedTo();
        const std::vector<std::function<UrlResponse()>> failures = {
            {},
            []() -> UrlResponse { throw UrlError(UrlError::notConnectedToInternet); },
            [] { return test::json("no", 400); },
            [] { return test::json("Configuration missing", 500); },
        };
        for (const auto &failure : failures) {
            scene.failure = failure;
            scene.startAndRegister();
            scene.converse();
            scene.navigate();
            scene.poll();
        }

        QList<Entry> unseen = catalogue(m_document);
        const QList<Entry> all = unseen;
        for (const TolvaneAnalyticsEvent &event : scene.delegate->events) {
            const auto describes = [&](const Entry &entry) { return entry.describes(event); };
            QVERIFY2(std::ranges::any_of(all, describes),
                     qPrintable(event.name() + u' ' + tolvane::json::text(event.properties())));
            unseen.removeIf(describes);
        }
        for (const Entry &entry : unseen)
            qWarning() << "never sent:" << entry.name << entry.keys << entry.fixed;
        QVERIFY(unseen.isEmpty());
    }

private:
    const Document m_document{u"analytics.md"_s};
};

QTEST_MAIN(AnalyticsCatalogue)
#include "tst_analyticscatalogue.moc"
