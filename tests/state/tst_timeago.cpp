// SPDX-License-Identifier: MIT
#include "state/times/timeago.h"
#include "testing/fixture.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;

class TimeAgoTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void timestampsReadAsAges()
    {
        // In Vienna; clocks change on 29 March and 25 October.
        const auto row = [](const char *name, const char *now, const char *timestamp,
                            const char *text) {
            const test::Fixture fixture;
            const QDateTime time = QDateTime::fromString(QString::fromUtf8(now), Qt::ISODateWithMs);
            fixture.clock->advance(std::chrono::milliseconds(fixture.clock->now().msecsTo(time)));
            const QString age = timeAgoText(QString::fromUtf8(timestamp));
            QVERIFY2(age == QLatin1String(text), name);
        };
        const char *noon = "2026-06-10T12:00:00.900+02:00";
        const char *now = "timeago_now";
        const char *week = "timeago_more_than_a_week";
        row("future", noon, "2026-06-20T12:00:00+0200", now);
        row("59 s", noon, "2026-06-10T11:59:01+0200", now);
        row("60 s", noon, "2026-06-10T11:59:00+0200", "1 %lld timeago_minutes");
        row("59 min", noon, "2026-06-10T11:00:01+0200", "59 %lld timeago_minutes");
        row("60 min", noon, "2026-06-10T09:00:00+0000", "1 %lld timeago_hours");
        row("offset to the west", noon, "2026-06-10T04:30:00-0330", "2 %lld timeago_hours");
        row("23:59 h", noon, "2026-06-09T12:01:00+0200", "23 %lld timeago_hours");
        row("1 day", noon, "2026-06-09T12:00:00+0200", "1 %lld timeago_days");
        row("6 days 23 h", noon, "2026-06-03T13:00:00+0200", "6 %lld timeago_days");
        row("7 days", noon, "2026-06-03T12:00:00+0200", week);
        row("years", noon, "1969-12-31T23:59:59+0000", week);

        const char *spring = "2026-03-29T12:00:00+02:00";
        row("day of 23 h", spring, "2026-03-28T12:00:00+0100", "1 %lld timeago_days");
        row("a second less", spring, "2026-03-28T12:00:01+0100", "22 %lld timeago_hours");
        row("week in spring", spring, "2026-03-22T12:00:00+0100", week);
        row("from a time that the next day skips", "2026-03-29T03:30:00+02:00",
            "2026-03-28T02:30:00+0100", "1 %lld timeago_days");
        const char *autumn = "2026-10-25T12:00:00+01:00";
        row("day of 25 h", autumn, "2026-10-24T12:00:00+0200", "1 %lld timeago_days");
        row("24 h of that day", autumn, "2026-10-24T13:00:00+0200", "24 %lld timeago_hours");
        row("week in autumn", autumn, "2026-10-18T12:00:01+0200", "6 %lld timeago_days");

        for (const char *unreadable :
             {"", "garbage", "2026-06-10T12:00:00.000+0200", "2026-06-10T12:00:00Z",
              "2026-06-10T12:00:00+02:00", "2026-06-10T12:00:00+0260", "2026-06-10 12:00:00+0200",
              " 2026-06-10T12:00:00+0200", "2026-06-10T12:00:00+0200\n", "26-06-10T12:00:00+0200",
              "2026-6-10T12:00:00+0200", "2026-02-30T12:00:00+0200", "2026-13-10T12:00:00+0200",
              "0000-01-01T12:00:00+0200", "2026-06-10T24:00:00+0200", "2026-06-10T12:00:60+0200",
              "٢٠٢٦-06-10T12:00:00+0200"})
            row(unreadable, noon, unreadable, "timeago_invalid");
    }

    void datesFollowTheCustomersFormat()
    {
        const std::tuple<QString, QString, QString> cases[] = {
            {u"de-AT"_s, u"2026-03-14T11:00:00+0000"_s, u"Samstag, 14. März 2026 12:00"_s},
            {u"ar-EG"_s, u"2026-03-06T23:30:00+0000"_s, u"السبت، ٧ مارس ٢٠٢٦ ١٢:٣٠ ص"_s},
            {u"ja"_s, u"2026-03-07T12:00:00+0000"_s, u"2026年3月7日土曜日 13:00"_s},
            {u"de"_s, u"garbage"_s, {}}};
        for (const auto &[language, timestamp, text] : cases) {
            const test::Fixture fixture; // It is the noon of 14 March.
            fixture.bundle->speak(language);
            QCOMPARE(dateTimeText(timestamp), text);
            const bool isOld = !timestamp.startsWith(u"2026-03-14"_s) && !text.isEmpty();
            QCOMPARE(spokenTimeAgoText(timestamp),
                     timeAgoText(timestamp) + (isOld ? u", "_s + text : QString()));
        }
    }
};

QTEST_GUILESS_MAIN(TimeAgoTest)
#include "tst_timeago.moc"
