// SPDX-License-Identifier: MIT
#include "backend/wire/formitems.h"

#include <tolvane/error.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QLocale>

#include <algorithm>

namespace tolvane {

namespace {

[[noreturn]] void refuse(const QJsonValue &value)
{
    const QByteArray text = QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact);
    throw Error(QStringLiteral("TolvaneSdk.FormItem"), 1,
                QStringLiteral("Value of type list could not be stringified for form item: %1")
                    .arg(QString::fromUtf8(text)));
}

QString plainDecimal(double number)
{
    return QString::number(number, 'f', QLocale::FloatingPointShortest);
}

/// The items of a value in a dictionary or in a list; a list must not contain lists.
QList<FormItem> itemsOf(const QString &name, const QJsonValue &value, bool inList)
{
    switch (value.type()) {
    case QJsonValue::Object:
        return flattened(value.toObject(), name);
    case QJsonValue::String:
        return {{name, value.toString()}};
    case QJsonValue::Double:
        return {{name, plainDecimal(value.toDouble())}};
    case QJsonValue::Bool:
        return {{name, plainDecimal(value.toBool() ? 1 : 0)}};
    case QJsonValue::Array: {
        if (inList)
            refuse(value);
        QList<FormItem> items;
        const QJsonArray array = value.toArray();
        for (qsizetype i = 0; i < array.size(); ++i)
            items += itemsOf(QStringLiteral("%1[%2]").arg(name).arg(i), array[i], true);
        return items;
    }
    default:
        return {};
    }
}

} // namespace

QList<FormItem> flattened(const QJsonObject &object, const QString &prefix)
{
    QStringList keys = object.keys();
    std::ranges::sort(keys);
    QList<FormItem> items;
    for (const QString &key : std::as_const(keys)) {
        const QString name = prefix.isEmpty() ? key : QStringLiteral("%1[%2]").arg(prefix, key);
        items += itemsOf(name, object.value(key), false);
    }
    return items;
}

} // namespace tolvane
