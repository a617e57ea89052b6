// SPDX-License-Identifier: MIT
#include "state/times/timeago.h"

#include "base/isodatetime.h"
#include "platform/platform.h"
#include "state/times/devicetimezone.h"

#include <QtCore/QDateTime>
#include <QtCore/QLocale>

#include <algorithm>
#include <array>

namespace tolvane {

namespace {

constexpr qint64 minute = 60;
constexpr qint64 hour = 60 * minute;
constexpr qint64 day = 24 * hour;
/// In days.
constexpr qint64 week = 7;

/// The moment `days` later at the same time of day, or the end of the gap if that time does not
/// occur, for which Qt 6.4's addDays() is wrong.
QDateTime daysLater(const QDateTime &moment, qint64 days, const QTimeZone &zone)
{
    const QDateTime later = moment.addDays(days);
    const int offset = zone.offsetFromUtc(later);
    const QDateTime sameTime = later.addSecs(zone.offsetFromUtc(moment) - offset);
    const bool isSkipped = zone.offsetFromUtc(sameTime) != offset;
    return isSkipped ? std::max(later, sameTime) : sameTime;
}

/// A calendar duration by components.
struct Span
{
    qint64 days = 0;
    qint64 hours = 0;
    qint64 minutes = 0;
};

Span spanBetween(const QDateTime &start, const QDateTime &end, const QTimeZone &zone)
{
    // Daylight saving time changes the number by one day at most.
    qint64 days = start.secsTo(end) / day + 1;
    while (days > 0 && daysLater(start, days, zone) > end)
        --days;
    const qint64 rest = daysLater(start, days, zone).secsTo(end);
    return {days, rest / hour, rest % hour / minute};
}

/// How long ago `start` was.
Span spanSince(const QDateTime &start)
{
    const QDateTime now = platform().clock->now();
    if (start >= now)
        return {};
    // The calendar differs by a day at most, and is not needed for ages beyond a week.
    const qint64 days = start.secsTo(now) / day;
    return days > week ? Span{.days = days} : spanBetween(start, now, deviceTimeZone());
}

/// The text for a duration with at least `minimum` of a component.
struct Rule
{
    qint64 Span::*component;
    qint64 minimum;
    const char *key;
    bool isCounted;
};

// The first matching text is used.
constexpr std::array rules = {
    Rule{&Span::days, week, "timeago_more_than_a_week", false},
    Rule{&Span::days, 1, "%lld timeago_days", true},
    Rule{&Span::hours, 1, "%lld timeago_hours", true},
    Rule{&Span::minutes, 1, "%lld timeago_minutes", true},
};

QDateTime momentOf(const QString &timestamp)
{
    return isoDateTime(timestamp, IsoZone::BasicOffset);
}

QString invalidText()
{
    return platform().bundle->string(QStringLiteral("timeago_invalid"));
}

QString textFor(const Span &span)
{
    const Bundle &bundle = *platform().bundle;
    const auto rule = std::ranges::find_if(
        rules, [&span](const Rule &each) { return span.*each.component >= each.minimum; });
    if (rule == rules.end())
        return bundle.string(QStringLiteral("timeago_now"));
    const QString key = QString::fromLatin1(rule->key);
    return rule->isCounted ? bundle.string(key, span.*rule->component) : bundle.string(key);
}

QString dateTimeFor(const QDateTime &moment)
{
    const QDateTime local = moment.toTimeZone(deviceTimeZone());
    const QLocale locale = platform().bundle->locale();
    return locale.toString(local.date(), QLocale::LongFormat) + QLatin1Char(' ') +
           locale.toString(local.time(), QLocale::ShortFormat);
}

} // namespace

QString timeAgoText(const QString &timestamp)
{
    const QDateTime start = momentOf(timestamp);
    return start.isValid() ? textFor(spanSince(start)) : invalidText();
}

QString spokenTimeAgoText(const QString &timestamp)
{
    const QDateTime start = momentOf(timestamp);
    if (!start.isValid())
        return invalidText();
    const Span span = spanSince(start);
    const QString age = textFor(span);
    return span.days >= week ? age + QStringLiteral(", ") + dateTimeFor(start) : age;
}

QString dateTimeText(const QString &timestamp)
{
    const QDateTime moment = momentOf(timestamp);
    return moment.isValid() ? dateTimeFor(moment) : QString();
}

} // namespace tolvane
