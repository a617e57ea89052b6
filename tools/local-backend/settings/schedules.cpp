// SPDX-License-Identifier: MIT
#include "settings/schedules.h"

#include "settings/settingsjson.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>

#include <algorithm>
#include <array>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array<const char *, 7> weekdays = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};

QString clockTime(const QJsonObject &schedule, const QString &key)
{
    const QDateTime time = QDateTime::fromString(requiredText(schedule, key), Qt::ISODate);
    if (!time.isValid() || time.timeSpec() == Qt::LocalTime)
        throw SettingsError("needs a time like \"2026-01-05T09:00:00Z\" for '" + key.toStdString() +
                            '\'');
    return time.toString(u"HH:mm"_s);
}

QString daysOf(const QJsonObject &schedule)
{
    QStringList days;
    for (const QJsonValue day : schedule.value(u"days"_s).toArray()) {
        const auto named = [&day](const char *name) { return day == QLatin1String(name); };
        if (std::none_of(weekdays.begin(), weekdays.end(), named))
            throw SettingsError("needs days out of Mon, Tue, Wed, Thu, Fri, Sat, Sun for 'days'");
        days.append(day.toString());
    }
    if (days.isEmpty())
        throw SettingsError("needs the list 'days' in every schedule");
    return days.join(u", "_s);
}

} // namespace

Schedules parseSchedules(std::string_view json)
{
    const QJsonDocument document = parseSettingsJson(json);
    if (!document.isArray())
        throw SettingsError("has to be a JSON list of schedules");
    QStringList hours;
    for (const QJsonValue value : document.array()) {
        const QJsonObject schedule = value.toObject();
        requiredText(schedule, u"id"_s);
        // Separate statements, because the order of evaluation of arguments is unspecified: the
        // first error is reported.
        const QString days = daysOf(schedule);
        const QString start = clockTime(schedule, u"startTime"_s);
        const QString end = clockTime(schedule, u"endTime"_s);
        hours.append(u"%1 %2-%3"_s.arg(days, start, end));
    }
    return {document.toJson(QJsonDocument::Compact).toStdString(),
            hours.isEmpty() ? "at no fixed hours" : hours.join(u"; "_s).toStdString()};
}

} // namespace tolvane::backend
