// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/fields.h"
#include "base/privateexport.h"

#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QString>

#include <algorithm>
#include <optional>

namespace tolvane {

/// The name and the value of a text part of a form.
using FormItem = QPair<QString, QString>;

// The items of a value. An absent value has no items. Numbers are plain decimals, with the digits
// that they have in JSON.

inline QList<FormItem> formItems(const QString &name, const QString &text)
{
    return {{name, text}};
}
TOLVANE_AUTOTEST_EXPORT QList<FormItem> formItems(const QString &name, bool value);
TOLVANE_AUTOTEST_EXPORT QList<FormItem> formItems(const QString &name, int number);
/// Infinities and NaN are absent.
TOLVANE_AUTOTEST_EXPORT QList<FormItem> formItems(const QString &name, float number);

template <Record T>
QList<FormItem> formItems(const QString &name, const T &record);

template <typename T>
QList<FormItem> formItems(const QString &name, const std::optional<T> &value)
{
    return value ? formItems(name, *value) : QList<FormItem>();
}

/// A form cannot represent lists of lists.
template <typename T>
QList<FormItem> formItems(const QString &name, const QList<T> &list)
{
    QList<FormItem> items;
    for (qsizetype i = 0; i < list.size(); ++i)
        items += formItems(QStringLiteral("%1[%2]").arg(name).arg(i), list[i]);
    return items;
}

/// The items of all fields, ordered by key. Nested fields have names such as "deviceInfo[locale]".
template <Record T>
QList<FormItem> formItems(const QString &prefix, const T &record)
{
    QList<QPair<QString, QList<FormItem>>> fields;
    forEachField<T>([&](const auto &field) {
        const QString key =
            QString::fromLatin1(field.key.data(), static_cast<qsizetype>(field.key.size()));
        const QString name = prefix.isEmpty() ? key : QStringLiteral("%1[%2]").arg(prefix, key);
        fields.emplaceBack(key, formItems(name, record.*field.member));
    });
    std::ranges::sort(fields, {}, &QPair<QString, QList<FormItem>>::first);
    QList<FormItem> items;
    for (const auto &field : fields)
        items += field.second;
    return items;
}

} // namespace tolvane
