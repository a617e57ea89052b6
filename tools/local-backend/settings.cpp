// SPDX-License-Identifier: MIT
#include "settings.h"

#include "source.h"
#include "text.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonArray>
#include <QtCore/QRegularExpression>

#include <array>

// At namespace scope, as the macro asks for.
static void initializeAssets()
{
    Q_INIT_RESOURCE(tolvane_backend_assets);
}

namespace tolvane::backend {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array<const char *, 8> colours = {
    "primary",
    "accent",
    "chatBackground",
    "fontColorBasic",
    "fontColorUserBubble",
    "fontColorAgentBubble",
    "bubbleUser",
    "bubbleAgent",
};
constexpr std::array<const char *, 2> appearances = {"Light", "Dark"};
constexpr std::array<const char *, 7> weekdays = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};

void checkColours(const QJsonObject &branding, const Source &source)
{
    static const QRegularExpression colour(u"^#?[0-9A-Fa-f]{6}$"_s);
    for (const char *appearance : appearances) {
        for (const char *name : colours) {
            const QString key = QLatin1String(name) + QLatin1String(appearance);
            if (!colour.match(source.text(branding, key)).hasMatch())
                source.refuse(u"needs a colour like \"#1F5C4D\" for '%1'"_s.arg(key));
        }
        const QString logo = u"logo"_s + QLatin1String(appearance);
        if (branding.contains(logo))
            source.text(branding, logo);
    }
}

void loadBranding(const Source &source, Settings &settings)
{
    const QJsonDocument document = source.json();
    if (!document.isObject())
        source.refuse(u"has to be a JSON object of texts"_s);
    QJsonObject branding = document.object();
    checkColours(branding, source);
    const QString updatedAt = u"updatedAt"_s;
    // Of the content, so that a client fetches an edited file anew and no other.
    if (!branding.contains(updatedAt)) {
        const QByteArray content = document.toJson(QJsonDocument::Compact);
        const std::string hash =
            sha256Hex({content.data(), static_cast<std::size_t>(content.size())});
        branding.insert(updatedAt, QString::fromStdString(hash));
    }
    settings.brandingUpdatedAt = source.text(branding, updatedAt).toStdString();
    settings.branding = QJsonDocument(branding).toJson(QJsonDocument::Compact).toStdString();
}

QString clockTime(const QJsonObject &schedule, const QString &key, const Source &source)
{
    const QString text = source.text(schedule, key);
    const QDateTime time = QDateTime::fromString(text, Qt::ISODate);
    if (!time.isValid() || time.timeSpec() == Qt::LocalTime)
        source.refuse(u"needs a time like \"2026-01-05T09:00:00Z\" for '%1'"_s.arg(key));
    return time.toString(u"HH:mm"_s);
}

QString daysOf(const QJsonObject &schedule, const Source &source)
{
    QStringList days;
    for (const QJsonValue day : schedule.value(u"days"_s).toArray()) {
        const auto named = [&day](const char *name) { return day == QLatin1String(name); };
        if (std::none_of(weekdays.begin(), weekdays.end(), named))
            source.refuse(u"needs days out of Mon, Tue, Wed, Thu, Fri, Sat, Sun for 'days'"_s);
        days.append(day.toString());
    }
    if (days.isEmpty())
        source.refuse(u"needs the list 'days' in every schedule"_s);
    return days.join(u", "_s);
}

void loadSchedules(const Source &source, Settings &settings)
{
    const QJsonDocument document = source.json();
    if (!document.isArray())
        source.refuse(u"has to be a JSON list of schedules"_s);
    QStringList hours;
    for (const QJsonValue value : document.array()) {
        const QJsonObject schedule = value.toObject();
        source.text(schedule, u"id"_s);
        // One by one, so that of several faults the first is told.
        const QString days = daysOf(schedule, source);
        const QString start = clockTime(schedule, u"startTime"_s, source);
        const QString end = clockTime(schedule, u"endTime"_s, source);
        hours.append(u"%1 %2-%3"_s.arg(days, start, end));
    }
    settings.schedules = document.toJson(QJsonDocument::Compact).toStdString();
    settings.openingHours =
        hours.isEmpty() ? "at no fixed hours" : hours.join(u"; "_s).toStdString();
}

} // namespace

Settings loadSettings(const std::string &brandingPath, const std::string &schedulesPath)
{
    initializeAssets();
    Settings settings;
    loadBranding(Source(brandingPath, "--branding", ":/tolvane-backend/branding.json"), settings);
    loadSchedules(Source(schedulesPath, "--schedules", ":/tolvane-backend/schedules.json"),
                  settings);
    settings.portrait = Source({}, "the build", ":/tolvane-backend/maya.png").bytes().toStdString();
    return settings;
}

} // namespace tolvane::backend
