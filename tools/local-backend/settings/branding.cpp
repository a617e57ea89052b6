// SPDX-License-Identifier: MIT
#include "settings/branding.h"

#include "base/text.h"
#include "settings/settingsjson.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>

#include <array>

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
constexpr const char *updatedAtKey = "updatedAt";

QString logoKey(const char *appearance)
{
    return u"logo"_s + QLatin1String(appearance);
}

QJsonObject parseObject(std::string_view json)
{
    const QJsonDocument document = parseSettingsJson(json);
    if (!document.isObject())
        throw SettingsError("has to be a JSON object of strings");
    return document.object();
}

std::string compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

void check(const QJsonObject &branding)
{
    static const QRegularExpression colour(u"^#?[0-9A-Fa-f]{6}$"_s);
    for (const char *appearance : appearances) {
        for (const char *name : colours) {
            const QString key = QLatin1String(name) + QLatin1String(appearance);
            if (!colour.match(requiredText(branding, key)).hasMatch())
                throw SettingsError("needs a colour like \"#1F5C4D\" for '" + key.toStdString() +
                                    '\'');
        }
        if (const QString logo = logoKey(appearance); branding.contains(logo))
            requiredText(branding, logo);
    }
}

// Changes only logos that begin with `from`.
void replacePrefix(QJsonObject &branding, const QString &from, const QString &to)
{
    for (const char *appearance : appearances) {
        const QString key = logoKey(appearance);
        const QString logo = branding.value(key).toString();
        if (logo.startsWith(from))
            branding.insert(key, QString(to + logo.mid(from.size())));
    }
}

} // namespace

Branding parseBranding(std::string_view json)
{
    QJsonObject branding = parseObject(json);
    check(branding);
    const QString updatedAt = QLatin1String(updatedAtKey);
    // A hash of the content, so that clients fetch the branding again only after it was edited.
    if (!branding.contains(updatedAt))
        branding.insert(updatedAt, QString::fromStdString(sha256Hex(compact(branding))));
    return {compact(branding), requiredText(branding, updatedAt).toStdString()};
}

Branding parseEditedBranding(std::string_view json, const std::string &baseUrl)
{
    QJsonObject branding = parseObject(json);
    branding.remove(QLatin1String(updatedAtKey));
    replacePrefix(branding, QString::fromStdString(baseUrl + '/'), u"/"_s);
    return parseBranding(compact(branding));
}

std::string brandingJson(const std::string &baseUrl, const Branding &branding)
{
    QJsonObject object = parseObject(branding.json);
    replacePrefix(object, u"/"_s, QString::fromStdString(baseUrl + '/'));
    return compact(object);
}

} // namespace tolvane::backend
