// SPDX-License-Identifier: MIT
#include "backend/persistentstore.h"
#include "base/errors.h"
#include "platform/async/awaitfuture.h"
#include "state/colorscheme.h"
#include "state/sdkdata.h"
#include "testing/samplerecords.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

BrandingDto makeBranding(const QString &updatedAt, const QString &primaryLight)
{
    BrandingDto branding;
    branding.primaryLight = primaryLight;
    branding.bubbleAgentDark = u"#010203"_s;
    branding.updatedAt = updatedAt;
    return branding;
}

struct SettingsFixture : Fixture
{
    SettingsFixture() { setKey(); }

    void fetch()
    {
        detach(SdkData::shared()->fetchSettings());
        settle();
    }

    QString primary() const { return ColorScheme::shared().primaryColor.light.name(); }
    QString lastQuery() const
    {
        return session->requests.constLast().url.query(QUrl::FullyEncoded);
    }
};

UrlResponse notModified(const UrlRequest &)
{
    return {.status = 304, .headers = {}, .body = {}};
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void brandingIsStoredAppliedAndRevalidated()
    {
        SettingsFixture fixture;
        const BrandingDto branding = makeBranding(u"2026-01-01+2&a=%20 é"_s, u" #aabbcc\n"_s);
        fixture.session->handler = [&](const UrlRequest &) { return jsonResponse(branding); };
        fixture.fetch();
        QCOMPARE(fixture.lastQuery(), u"updatedAt"_s);
        QCOMPARE(persistentstore::branding(), branding);
        QCOMPARE(fixture.primary(), u"#aabbcc"_s);
        QCOMPARE(ColorScheme::shared().bubbleAgentColor.dark.name(), u"#010203"_s);
        QVERIFY(!ColorScheme::shared().logoLight); // As in the record, and no longer empty text.
        QCOMPARE(fixture.delegate->names(),
                 QStringList{TolvaneAnalyticsEvent::Lifecycle::fetchedSettings});

        fixture.session->handler = notModified;
        ColorScheme::shared() = ColorScheme();
        fixture.fetch();
        QCOMPARE(fixture.lastQuery(), u"updatedAt=2026-01-01%2B2%26a%3D%2520%20%C3%A9"_s);
        QCOMPARE(fixture.primary(), u"#aabbcc"_s); // The stored copy was applied.
    }

    void notModifiedWithoutACopyKeepsTheDefaults()
    {
        for (const QByteArray &copy : {QByteArray(), QByteArray("{\"primaryLight\":")}) {
            SettingsFixture fixture;
            if (!copy.isNull())
                fixture.preferences->values->insert(u"com.tolvane.sdk/branding"_s, copy);
            fixture.session->handler = notModified;
            QVERIFY(!SdkData::shared()->settingsDidLoad());
            fixture.fetch();
            QCOMPARE(fixture.lastQuery(), u"updatedAt"_s);
            QVERIFY(SdkData::shared()->settingsDidLoad());
            QCOMPARE(fixture.primary(), u"#ffffff"_s);
            QCOMPARE(ColorScheme::shared().logoLight, u""_s);
        }
    }

    void aFailureChangesNothing()
    {
        SettingsFixture fixture;
        persistentstore::setBranding(makeBranding(u"1"_s, u"#aabbcc"_s));
        fixture.session->handler = [](const UrlRequest &) -> UrlResponse {
            throw UrlError(UrlError::timedOut);
        };
        fixture.fetch();
        QVERIFY(!SdkData::shared()->settingsDidLoad());
        QCOMPARE(fixture.primary(), u"#ffffff"_s);
        QVERIFY(!fixture.log->lines.filter(u"Error fetching styling: "_s).isEmpty());
        const QVariantMap error =
            fixture.delegate->properties(TolvaneAnalyticsEvent::Errors::networkError);
        QCOMPARE(error.value(u"error_context"_s), u"fetchSettings"_s);
        QCOMPARE(error.value(u"error_code"_s), -1001);
        QCOMPARE(error.value(u"error_domain"_s), ErrorDomain::transport);
    }

    void hexadecimalTexts()
    {
        const QString gray = u"#808080"_s;
        const QString black = u"#000000"_s;
        const std::pair<QString, QString> cases[] = {{u"1A2B3C"_s, u"#1a2b3c"_s},
                                                     {u" \t#1a2b3c\r\n"_s, u"#1a2b3c"_s},
                                                     {u"12g456"_s, u"#000012"_s},
                                                     {u"zzzzzz"_s, black},
                                                     {u"##12345"_s, black},
                                                     {u"##123456"_s, gray},
                                                     {u"#abc"_s, gray},
                                                     {u"#11223344"_s, gray},
                                                     {QString(), gray},
                                                     {u"👍👍👍👍👍👍"_s, black},
                                                     {u"👍👍👍"_s, gray}};
        for (const auto &[text, name] : cases)
            QVERIFY2(Color::fromHex(text).name() == name, qPrintable(text));
    }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
