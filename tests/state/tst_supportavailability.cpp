// SPDX-License-Identifier: MIT
#include "state/times/supportavailability.h"
#include "testing/fixture.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;

namespace {

const QString open = u"ticket_cs_available"_s;
const QString closed = u"ticket_cs_not_available"_s;
const QString inADay = u"ticket_cs_available_day"_s;
const QString inSomeDays = u"ticket_cs_available_days"_s;

QString inHours(int hours)
{
    return QString::number(hours) + u" %lld ticket_cs_available_hours"_s;
}

const QStringList week = {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s, u"Sun"_s};

ScheduleDto schedule(const QString &start, const QString &end, const QStringList &days)
{
    return {.id = u"s"_s, .startTime = start, .endTime = end, .days = days};
}

/// A schedule with times of the day in UTC.
ScheduleDto hours(const char *start, const char *end, const QStringList &days = week)
{
    const QString form = u"2020-01-01T%1:00Z"_s;
    return schedule(form.arg(QLatin1String(start)), form.arg(QLatin1String(end)), days);
}

} // namespace

class SupportAvailabilityTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void schedulesDetermineTheAvailability()
    {
        QString zone = u"UTC"_s;
        const auto row = [&zone](const char *name, const char *now,
                                 const QList<ScheduleDto> &schedules, const QString &text) {
            const test::Fixture fixture;
            fixture.device->timeZone = zone;
            const QDateTime time = QDateTime::fromString(QString::fromUtf8(now), Qt::ISODateWithMs);
            fixture.clock->advance(std::chrono::milliseconds(fixture.clock->now().msecsTo(time)));
            const SupportAvailability availability = supportAvailability(schedules);
            QVERIFY2(availability.text == text, name);
            QVERIFY2(availability.isAvailable == (text == open), name);
        };
        // 10 June 2026 is a Wednesday.
        const char *noon = "2026-06-10T12:00:00Z";
        row("no schedules", noon, {}, closed);
        row("open", noon, {hours("09:00", "17:00")}, open);
        row("from its first second", "2026-06-10T09:00:00.000Z", {hours("09:00", "17:00")}, open);
        row("not before", "2026-06-10T08:59:59.999Z", {hours("09:00", "17:00")}, inHours(1));
        row("through its last minute", "2026-06-10T17:00:59.999Z", {hours("09:00", "17:00")}, open);
        row("not after", "2026-06-10T17:01:00Z", {hours("09:00", "17:00")}, inADay);
        row("one minute long", noon, {hours("12:00", "12:00")}, open);
        row("on another day", noon, {hours("09:00", "17:00", {u"Thu"_s})}, inADay);
        row("over midnight, late", "2026-06-10T23:00:00Z", {hours("22:00", "02:00")}, inADay);
        row("over midnight, early", "2026-06-10T01:00:00Z", {hours("22:00", "02:00")}, inADay);
        row("over midnight, before", "2026-06-10T20:30:00Z", {hours("22:00", "02:00")}, inHours(2));

        row("7 h", noon, {hours("19:00", "20:00")}, inHours(7));
        row("7 h and a second", "2026-06-10T11:59:59Z", {hours("19:00", "20:00")}, inADay);
        row("8 h", noon, {hours("20:00", "21:00")}, inADay);
        row("23 h", noon, {hours("11:00", "11:30")}, inADay);
        row("23 h and a second", "2026-06-10T11:59:59Z", {hours("11:00", "11:30")}, inSomeDays);
        row("24 h", "2026-06-10T11:31:00Z", {hours("11:31", "11:30", {u"Thu"_s})}, inSomeDays);
        row("6 days", noon, {hours("09:00", "10:00", {u"Tue"_s})}, inSomeDays);
        row("today a week ahead", noon, {hours("09:00", "10:00", {u"Wed"_s})}, closed);
        row("starts this minute", noon, {hours("12:00", "11:00", {u"Wed"_s})}, closed);

        row("the second is open", noon, {hours("01:00", "02:00"), hours("11:00", "13:00")}, open);
        row("the shortest wait", noon, {hours("18:00", "19:00"), hours("14:00", "15:00")},
            inHours(2));
        row("other words for days", noon,
            {hours("09:00", "17:00", {u"wed"_s, u"WED"_s, u"Wednesday"_s, QString()})}, closed);
        for (const char *unreadable :
             {"", "09:00", "2026-06-10", "2026-06-10T09:00:00", "2026-06-10T09:00Z",
              "2026-06-10T09:00:00.000Z", "2026-06-10 09:00:00Z", "2026-02-30T09:00:00Z",
              "2026-06-10T24:00:00Z", "2026-06-10T25:00:00Z", "2026-06-10T09:00:00+2400",
              "2026-06-10T09:00:00Z "}) {
            const QString text = QString::fromUtf8(unreadable);
            const QString fine = u"2026-06-10T13:00:00Z"_s;
            row(qPrintable(u"start "_s + text), noon, {schedule(text, fine, week)}, closed);
            row(qPrintable(u"end "_s + text), noon,
                {schedule(fine, text, week), hours("14:00", "15:00")}, inHours(2));
        }

        zone = u"Europe/Vienna"_s; // Turns its clocks on 29 March and 25 October.
        row("with an offset", "2026-06-10T07:30:00Z",
            {schedule(u"2026-06-10T09:00:00+02:00"_s, u"2026-06-10T17:00:00+0200"_s, week)}, open);
        // An hour earlier in winter than the same clock says in summer.
        row("sent in winter", "2026-06-10T07:30:00Z", {hours("08:00", "16:00")}, open);
        row("a short night", "2026-03-28T22:00:00Z", // 23:00; opens at 07:00
            {schedule(u"2026-03-01T07:00:00+01:00"_s, u"2026-03-01T08:00:00+01:00"_s, week)},
            inHours(7));
        row("a long night", "2026-10-24T22:00:00Z", // 00:00; opens at 07:00
            {schedule(u"2026-03-01T07:00:00+01:00"_s, u"2026-03-01T08:00:00+01:00"_s, week)},
            inADay);
        row("a time that is skipped", "2026-03-29T00:00:00Z", // 01:00; opens at 03:00
            {schedule(u"2026-03-01T02:30:00+01:00"_s, u"2026-03-01T02:40:00+01:00"_s, week)},
            inHours(1));
        row("a time that comes twice", "2026-10-24T23:30:00Z", // 01:30; opens at the first 02:30
            {schedule(u"2026-03-01T02:30:00+01:00"_s, u"2026-03-01T02:40:00+01:00"_s, week)},
            inHours(1));
        zone = u"Pacific/Auckland"_s;
        row("the zone's weekday", "2026-06-09T22:00:00Z",
            {schedule(u"2026-06-10T09:00:00+12:00"_s, u"2026-06-10T17:00:00+12:00"_s, {u"Wed"_s})},
            open);
        row("skipped far in the east", "2026-09-26T13:00:00Z", // 01:00; opens at 03:00
            {schedule(u"2026-06-10T02:30:00+12:00"_s, u"2026-06-10T02:31:00+12:00"_s, week)},
            inHours(1));
        zone = u"Pacific/Honolulu"_s;
        row("in the west", "2026-06-11T08:00:00Z", // Wednesday, 22:00
            {schedule(u"2026-06-10T23:30:00-10:00"_s, u"2026-06-10T23:40:00-10:00"_s, {u"Wed"_s})},
            inHours(2));
        zone = u"Asia/Kolkata"_s;
        row("zone with half an hour", "2026-06-10T03:30:00Z", {hours("03:30", "04:00")}, open);
    }
};

QTEST_GUILESS_MAIN(SupportAvailabilityTest)
#include "tst_supportavailability.moc"
