// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace tolvane::console {

/// The arguments of a request. The accessors throw CommandError for a missing argument or one of
/// another type. Optional accessors treat null as missing.
class Arguments
{
public:
    explicit Arguments(QJsonObject request)
        : m_request(std::move(request))
    {
    }

    QString text(const char *key) const;
    bool boolean(const char *key) const;
    int number(const char *key) const;
    QJsonObject object(const char *key) const;
    std::optional<QString> optionalText(const char *key) const;
    std::optional<QJsonArray> optionalList(const char *key) const;

private:
    QJsonValue value(const char *key, QJsonValue::Type type, const char *typeName) const;
    bool has(const char *key) const;

    QJsonObject m_request;
};

} // namespace tolvane::console
