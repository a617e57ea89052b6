// SPDX-License-Identifier: MIT
#include "branding.h"

#include "settingsjson.h"
#include "text.h"

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

QJsonObject objectIn(std::string_view json)
{
    const QJsonDocument document = settingsJson(json);
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
            if (!colour.match(settingsText(branding, key)).hasMatch())
                throw SettingsError("needs a colour like \"#1F5C4D\" for '" + key.toStdString() +
                                    '\'');
        }
        if (const QString logo = logoKey(appearance); branding.contains(logo))
            settingsText(branding, logo);
    }
}

// Changes only logos that begin with `from`.
void replaceBeginning(QJsonObject &branding, const QString &from, const QString &to)
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
    QJsonObject branding = objectIn(json);
    check(branding);
    const QString updatedAt = QLatin1String(updatedAtKey);
    // A hash of the content, so that clients fetch the branding again only after it was edited.
    if (!branding.contains(updatedAt))
        branding.insert(updatedAt, QString::fromStdString(sha256Hex(compact(branding))));
    return {compact(branding), settingsText(branding, updatedAt).toStdString()};
}

Branding editedBranding(std::string_view json, const std::string &baseUrl)
{
    QJsonObject branding = objectIn(json);
    branding.remove(QLatin1String(updatedAtKey));
    replaceBeginning(branding, QString::fromStdString(baseUrl + '/'), u"/"_s);
    return parseBranding(compact(branding));
}

std::string brandingAt(const std::string &baseUrl, const Branding &branding)
{
    QJsonObject object = objectIn(branding.json);
    replaceBeginning(object, u"/"_s, QString::fromStdString(baseUrl + '/'));
    return compact(object);
}

} // namespace tolvane::backend
