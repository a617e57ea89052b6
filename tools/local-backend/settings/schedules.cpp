// SPDX-License-Identifier: MIT
#include "settings/schedules.h"

#include <QtCore/QDate>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <array>

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array weekdays = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};

// An ISO 8601 date-time with a zone. Versions of Qt differ in the texts that they accept.
bool isDateTime(const std::string &text)
{
    static const QRegularExpression format(
        uR"(\A(\d{4}-\d\d-\d\d)T([01]\d|2[0-3]):[0-5]\d(:[0-5]\d([.,]\d+)?)?(Z|[+-]\d\d:?\d\d)\z)"_s);
    const auto match = format.match(QString::fromStdString(text));
    return match.hasMatch() && QDate::fromString(match.captured(1), u"yyyy-MM-dd"_s).isValid();
}

std::string clockTime(const Json &schedule, const char *key)
{
    constexpr std::size_t begin = std::string_view("2026-01-05T").size();
    return schedule.at(key).get<std::string>().substr(begin, std::string_view("09:00").size());
}

void check(const JsonNode &schedule)
{
    schedule.at("id").text();
    const std::vector<JsonNode> days = schedule.at("days").list();
    if (days.empty())
        schedule.at("days").fail("needs a day");
    for (const JsonNode &day : days) {
        if (std::ranges::find(weekdays, day.text()) == weekdays.end())
            day.fail("needs one of Mon, Tue, Wed, Thu, Fri, Sat, Sun");
    }
    for (const char *key : {"startTime", "endTime"}) {
        if (const JsonNode time = schedule.at(key); !isDateTime(time.text()))
            time.fail("needs a time like \"2026-01-05T09:00:00Z\"");
    }
}

} // namespace

Schedules parseSchedules(std::string_view text)
{
    const JsonNode schedules = JsonNode::parse(text);
    for (const JsonNode &schedule : schedules.list())
        check(schedule);
    return schedules.value();
}

std::string openingHours(const Schedules &schedules)
{
    std::string hours;
    for (const Json &schedule : schedules) {
        hours += hours.empty() ? "" : "; ";
        for (const Json &day : schedule.at("days"))
            hours += (&day == &schedule.at("days").front() ? "" : ", ") + day.get<std::string>();
        hours += ' ' + clockTime(schedule, "startTime") + '-' + clockTime(schedule, "endTime");
    }
    return hours.empty() ? "at no fixed hours" : hours;
}

} // namespace tolvane::backend
