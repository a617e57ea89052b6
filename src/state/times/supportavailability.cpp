// SPDX-License-Identifier: MIT
#include "state/times/supportavailability.h"

#include "base/isodatetime.h"
#include "platform/platform.h"
#include "state/times/devicetimezone.h"

#include <QtCore/QDateTime>

#include <algorithm>
#include <array>
#include <optional>

namespace tolvane {

namespace {

constexpr qint64 millisecondsPerHour = 3'600'000;
constexpr qint64 secondsPerDay = 86'400;

/// In the order of QDate::dayOfWeek(), from 1 on.
constexpr std::array weekdays = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};

bool isOn(const ScheduleDto &schedule, QDate date)
{
    const auto index = static_cast<std::size_t>(date.dayOfWeek() - 1);
    return schedule.days.contains(QLatin1String(weekdays.at(index)));
}

/// The device's time of day at an ISO 8601 date-time, without seconds.
std::optional<QTime> timeOfDay(const QString &text, const QTimeZone &zone)
{
    const QDateTime moment = isoDateTime(text, IsoZone::Any);
    if (!moment.isValid())
        return std::nullopt;
    const QTime time = moment.toTimeZone(zone).time();
    return QTime(time.hour(), time.minute());
}

/// The moment of a local time on a day: the first one if the time occurs twice, and the end of the
/// gap if it does not occur. QDateTime of Qt 6.4 is inconsistent in both cases.
QDateTime fromLocalTime(QDate date, QTime time, const QTimeZone &zone)
{
    const QDateTime local(date, time, QTimeZone::utc());
    const auto before = local.addSecs(-zone.offsetFromUtc(local.addSecs(-secondsPerDay)));
    const auto after = local.addSecs(-zone.offsetFromUtc(local.addSecs(secondsPerDay)));
    const auto isLocalTime = [&](const QDateTime &moment) {
        return moment.addSecs(zone.offsetFromUtc(moment)) == local;
    };
    for (const QDateTime &moment : {std::min(before, after), std::max(before, after)}) {
        if (isLocalTime(moment))
            return moment;
    }
    const QDateTime jump = zone.nextTransition(local.addSecs(-secondsPerDay)).atUtc;
    return jump.isValid() ? jump : before;
}

/// The current date and time of the device's calendar.
struct Now
{
    QTimeZone zone = deviceTimeZone();
    QDateTime moment = platform().clock->now();
    QDate date = moment.toTimeZone(zone).date();
    QTime time = moment.toTimeZone(zone).time();
};

/// Ignores seconds: the schedule is open until the end of its last minute.
bool isOpen(const ScheduleDto &schedule, QTime start, QTime end, const Now &now)
{
    const QTime minute(now.time.hour(), now.time.minute());
    return isOn(schedule, now.date) && start <= minute && minute <= end;
}

/// The milliseconds until the schedule opens; absent if it does not within the next six days.
std::optional<qint64> waitFor(const ScheduleDto &schedule, QTime start, const Now &now)
{
    for (int offset = 0; offset < 7; ++offset) {
        const QDate date = now.date.addDays(offset);
        if (!isOn(schedule, date))
            continue;
        const qint64 wait = now.moment.msecsTo(fromLocalTime(date, start, now.zone));
        if (wait > 0)
            return wait;
    }
    return std::nullopt;
}

QString textFor(const std::optional<qint64> &wait)
{
    const Bundle &bundle = *platform().bundle;
    if (!wait)
        return bundle.string(QStringLiteral("ticket_cs_not_available"));
    const qint64 hours = (*wait + millisecondsPerHour - 1) / millisecondsPerHour;
    if (hours < 8)
        return bundle.string(QStringLiteral("%lld ticket_cs_available_hours"), hours);
    return bundle.string(hours < 24 ? QStringLiteral("ticket_cs_available_day")
                                    : QStringLiteral("ticket_cs_available_days"));
}

} // namespace

SupportAvailability supportAvailability(const QList<ScheduleDto> &schedules)
{
    const Now now;
    std::optional<qint64> shortest;
    for (const ScheduleDto &schedule : schedules) {
        const auto start = timeOfDay(schedule.startTime, now.zone);
        const auto end = start ? timeOfDay(schedule.endTime, now.zone) : std::nullopt;
        if (!end)
            continue;
        if (isOpen(schedule, *start, *end, now))
            return {true, platform().bundle->string(QStringLiteral("ticket_cs_available"))};
        const auto wait = waitFor(schedule, *start, now);
        if (wait && (!shortest || *wait < *shortest))
            shortest = wait;
    }
    return {false, textFor(shortest)};
}

} // namespace tolvane
