// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace tolvane::console {

/// The arguments of a request. Asking for one that is missing or of another type throws
/// CommandError; where it is optional, null counts as missing.
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
