// SPDX-License-Identifier: MIT
// Timestamps and schedules: a timestamp's zone and the order of schedules do not matter.
#include "base/isodatetime.h"
#include "state/times/supportavailability.h"
#include "state/times/timeago.h"
#include "targets.h"
#include "testing/fixture.h"

#include <QtCore/QTimeZone>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;

const QString invalid = u"timeago_invalid"_s;

void checkTimestamp(const QString &text)
{
    const QString words = timeAgoText(text);
    require(words.contains(u"timeago_"_s), "each timestamp has a text");
    if (words == invalid)
        return;
    const QDateTime moment = isoDateTime(text, IsoZone::BasicOffset);
    require(moment.isValid() && text.size() == 24, "a valid timestamp is a moment");
    for (const int offset : {-12 * 3600, 0, 5 * 3600 + 45 * 60}) {
        const QDateTime there = moment.toOffsetFromUtc(offset);
        if (there.date().year() < 1 || there.date().year() > 9999)
            continue;
        const QString sign = offset < 0 ? u"-"_s : u"+"_s;
        const QString elsewhere = there.toString(u"yyyy-MM-ddTHH:mm:ss"_s) + sign +
                                  u"%1%2"_s.arg(qAbs(offset) / 3600, 2, 10, QLatin1Char('0'))
                                      .arg(qAbs(offset) / 60 % 60, 2, 10, QLatin1Char('0'));
        require(timeAgoText(elsewhere) == words, "the zone of a timestamp does not matter");
    }
}

QList<ScheduleDto> schedulesOf(Input &input)
{
    static const QStringList weekdays = {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s,
                                         u"Fri"_s, u"Sat"_s, u"Sun"_s, u"mon"_s};
    QList<ScheduleDto> schedules;
    while (!input.isEmpty() && schedules.size() < 8) {
        ScheduleDto schedule;
        const int days = input.byte();
        for (int day = 0; day < 8; ++day) {
            if (days & (1 << day))
                schedule.days += weekdays.at(day);
        }
        schedule.startTime = QString::fromUtf8(input.line());
        schedule.endTime = QString::fromUtf8(input.line());
        schedules += schedule;
    }
    return schedules;
}

void checkSchedules(const QList<ScheduleDto> &schedules)
{
    const SupportAvailability now = supportAvailability(schedules);
    require(now.text.contains(u"ticket_cs_"_s), "all schedules have a text");
    require(now.isAvailable == (now.text == u"ticket_cs_available"_s),
            "text and availability agree");
    const QList<ScheduleDto> reversed(schedules.crbegin(), schedules.crend());
    require(supportAvailability(reversed).text == now.text,
            "the order of schedules does not matter");
    const ScheduleDto unreadable{
        .id = {}, .startTime = u"9:00"_s, .endTime = {}, .days = {u"Mon"_s}};
    require(supportAvailability(schedules + QList{unreadable}).text == now.text,
            "unreadable schedules are ignored");
}

} // namespace

void times(Input input)
{
    static auto &fixture = *new test::Fixture;
    static const QStringList zones = {u"UTC"_s, u"Europe/Vienna"_s, u"Asia/Kathmandu"_s,
                                      u"America/St_Johns"_s};
    fixture.device->timeZone = zones.at(input.byte() % zones.size());
    checkTimestamp(QString::fromUtf8(input.line()));
    checkSchedules(schedulesOf(input));
}

} // namespace tolvane::fuzz
