// SPDX-License-Identifier: MIT
#include "settings/settingsjson.h"

#include <QtCore/QFile>

namespace tolvane::backend {

using namespace Qt::StringLiterals;

std::string readFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw SettingsError("cannot be read (" + file.errorString().toStdString() +
                            "); check its name and permissions");
    return file.readAll().toStdString();
}

QJsonDocument parseSettingsJson(std::string_view text)
{
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(
        QByteArray(text.data(), static_cast<qsizetype>(text.size())), &error);
    if (error.error != QJsonParseError::NoError) {
        const QString reason =
            u"is not valid JSON: %1 at byte %2"_s.arg(error.errorString()).arg(error.offset);
        throw SettingsError(reason.toStdString());
    }
    return document;
}

QString requiredText(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = object.value(key);
    if (!value.isString() || value.toString().isEmpty())
        throw SettingsError("needs the string '" + key.toStdString() + '\'');
    return value.toString();
}

} // namespace tolvane::backend
