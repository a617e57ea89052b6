// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/fields.h"
#include "base/ulid.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace tolvane::json {

void write(QByteArray &out, const QString &text);
void write(QByteArray &out, bool value);
void write(QByteArray &out, int number);
/// The shortest decimal that is parsed as the same 32-bit float; null for infinities and NaN.
void write(QByteArray &out, float number);
void write(QByteArray &out, const ULID &id);

template <Record T>
void write(QByteArray &out, const T &record);

template <typename T>
void write(QByteArray &out, const QList<T> &list)
{
    char separator = '[';
    for (const T &item : list) {
        out += separator;
        write(out, item);
        separator = ',';
    }
    out += list.isEmpty() ? "[]" : "]";
}

template <typename T>
void writeField(QByteArray &out, std::string_view key, const T &value)
{
    if (!out.endsWith('{'))
        out += ',';
    out += '"';
    out.append(key.data(), static_cast<qsizetype>(key.size()));
    out += "\":";
    write(out, value);
}

template <typename T>
void writeField(QByteArray &out, std::string_view key, const std::optional<T> &value)
{
    if (value)
        writeField(out, key, *value);
}

template <Record T>
void write(QByteArray &out, const T &record)
{
    out += '{';
    forEachField<T>([&](const auto &field) { writeField(out, field.key, record.*field.member); });
    out += '}';
}

} // namespace tolvane::json
