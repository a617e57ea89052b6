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
        fixture.session->handler = [&](const UrlRequest &) { return answer(branding); };
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

    void notModifiedWithoutACopyKeepsTheDefaults_data()
    {
        QTest::addColumn<QVariantMap>("stored");
        QTest::newRow("nothing stored") << QVariantMap();
        QTest::newRow("unreadable copy")
            << QVariantMap{{u"com.tolvane.sdk/branding"_s, QByteArray("{\"primaryLight\":")}};
    }

    void notModifiedWithoutACopyKeepsTheDefaults()
    {
        QFETCH(const QVariantMap, stored);
        SettingsFixture fixture;
        *fixture.preferences->values = stored;
        fixture.session->handler = notModified;
        QVERIFY(!SdkData::shared()->settingsDidLoad());
        fixture.fetch();
        QCOMPARE(fixture.lastQuery(), u"updatedAt"_s);
        QVERIFY(SdkData::shared()->settingsDidLoad());
        QCOMPARE(fixture.primary(), u"#ffffff"_s);
        QCOMPARE(ColorScheme::shared().logoLight, u""_s);
        QCOMPARE(*fixture.preferences->values, stored);
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

    void hexTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("name");
        const QString gray = u"#808080"_s;
        const QString black = u"#000000"_s;
        QTest::newRow("plain") << "1A2B3C"
                               << "#1a2b3c";
        QTest::newRow("sign, lower case, white space") << " \t#1a2b3c\r\n"
                                                       << "#1a2b3c";
        QTest::newRow("longest prefix") << "12g456"
                                        << "#000012";
        QTest::newRow("no digits") << "zzzzzz" << black;
        QTest::newRow("second sign") << "##12345" << black;
        QTest::newRow("second sign, too long") << "##123456" << gray;
        QTest::newRow("three digits") << "#abc" << gray;
        QTest::newRow("with alpha") << "#11223344" << gray;
        QTest::newRow("empty") << "" << gray;
        QTest::newRow("six emoji") << "👍👍👍👍👍👍" << black;
        QTest::newRow("three emoji") << "👍👍👍" << gray;
    }

    void hexTexts()
    {
        QFETCH(const QString, text);
        QFETCH(const QString, name);
        QCOMPARE(Color::fromHex(text).name(), name);
    }
};

QTEST_GUILESS_MAIN(SettingsTest)
#include "tst_settings.moc"
