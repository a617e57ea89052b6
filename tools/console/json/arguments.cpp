// SPDX-License-Identifier: MIT
#include "json/arguments.h"

#include "host/attachments.h"

namespace tolvane::console {

bool Arguments::has(const char *key) const
{
    const QJsonValue found = m_request.value(QLatin1String(key));
    return !found.isUndefined() && !found.isNull();
}

QJsonValue Arguments::value(const char *key, QJsonValue::Type type, const char *typeName) const
{
    if (!has(key))
        throw CommandError(QStringLiteral("Argument \"%1\" is missing").arg(QLatin1String(key)));
    QJsonValue found = m_request.value(QLatin1String(key));
    if (found.type() != type)
        throw CommandError(QStringLiteral("Argument \"%1\" must be %2")
                               .arg(QLatin1String(key), QLatin1String(typeName)));
    return found;
}

QString Arguments::text(const char *key) const
{
    return value(key, QJsonValue::String, "a text").toString();
}

bool Arguments::boolean(const char *key) const
{
    return value(key, QJsonValue::Bool, "true or false").toBool();
}

int Arguments::number(const char *key) const
{
    return value(key, QJsonValue::Double, "a number").toInt();
}

QJsonObject Arguments::object(const char *key) const
{
    return value(key, QJsonValue::Object, "an object").toObject();
}

std::optional<QString> Arguments::optionalText(const char *key) const
{
    return has(key) ? std::optional(text(key)) : std::nullopt;
}

std::optional<QJsonArray> Arguments::optionalList(const char *key) const
{
    return has(key) ? std::optional(value(key, QJsonValue::Array, "a list").toArray())
                    : std::nullopt;
}

} // namespace tolvane::console
