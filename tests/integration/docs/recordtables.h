// SPDX-License-Identifier: MIT
#pragma once

#include "document.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QUrl>

/// The tables of records in a document, and JSON held against them.
class RecordTables
{
public:
    struct Field
    {
        QString type;
        bool isOptional;
        /// What is allowed, where the type is a word.
        QStringList words;
    };
    using Record = QMap<QString, Field>;

    explicit RecordTables(const Document &document)
    {
        for (const Document::Row &row : document.rows(QStringLiteral("field"))) {
            QString type = row.value(1).remove(QLatin1Char('`'));
            const QString optional = QStringLiteral(", optional");
            const Field field{QString(type).remove(optional), type.contains(optional),
                              Document::words(row.value(2))};
            for (const QString &name : Document::words(row.value(0)))
                m_records[row.section].insert(name, field);
        }
    }

    Record record(const QString &name) const { return m_records.value(name); }

    /// What in a value is not as its type says; empty if all is. Remembers which fields were there.
    QStringList complaints(const QJsonValue &value, const QString &type)
    {
        return complaints(value, Field{type, false, {}}, type);
    }

    /// The fields that no value has had.
    QStringList unseen() const
    {
        QStringList unseen;
        for (const QString &name : m_records.keys()) {
            for (const QString &field : m_records[name].keys()) {
                const QString place = name + QLatin1Char('.') + field;
                if (!m_seen.contains(place))
                    unseen += place;
            }
        }
        return unseen;
    }

private:
    QStringList complaints(const QJsonValue &value, const Field &field, const QString &place)
    {
        const QString list = QStringLiteral("list of ");
        const QString object = QStringLiteral("object of ");
        Field part = field;
        QStringList found;
        if (field.type.startsWith(list)) {
            part.type = field.type.mid(list.size());
            for (const QJsonValue &each : value.toArray())
                found += complaints(each, part, place);
            return value.isArray() ? found : QStringList(place + QStringLiteral(" is no list"));
        }
        if (field.type.startsWith(object)) {
            part.type = field.type.mid(object.size());
            for (const QJsonValue &each : value.toObject())
                found += complaints(each, part, place);
            return value.isObject() ? found : QStringList(place + QStringLiteral(" is no object"));
        }
        if (m_records.contains(field.type))
            return complaintsOfRecord(value, field.type);
        return isOfType(value, field) ? found
                                      : QStringList(place + QStringLiteral(" is no ") + field.type);
    }

    QStringList complaintsOfRecord(const QJsonValue &value, const QString &name)
    {
        const Record fields = m_records.value(name);
        const QJsonObject object = value.toObject();
        QStringList found;
        for (const QString &key : object.keys()) {
            const QString place = name + QLatin1Char('.') + key;
            m_seen += place;
            if (fields.contains(key))
                found += complaints(object[key], fields[key], place);
            else
                found += place + QStringLiteral(" is not in the table");
        }
        for (const QString &key : fields.keys()) {
            if (!fields[key].isOptional && !object.contains(key))
                found += name + QLatin1Char('.') + key + QStringLiteral(" is missing");
        }
        return found;
    }

    static bool isOfType(const QJsonValue &value, const Field &field)
    {
        static const QMap<QString, QString> forms = {
            {QStringLiteral("text"), QStringLiteral(".*")},
            {QStringLiteral("time"),
             QStringLiteral("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d[+-]\\d{4}")},
            {QStringLiteral("colour"), QStringLiteral("#[0-9A-Fa-f]{6}")},
            {QStringLiteral("address"), QStringLiteral("https?://[^ ]+")},
        };
        if (field.type == QLatin1String("Boolean"))
            return value.isBool();
        if (field.type == QLatin1String("word"))
            return field.words.contains(value.toString());
        const QRegularExpression form(
            QRegularExpression::anchoredPattern(forms.value(field.type, QStringLiteral("(?!)"))),
            QRegularExpression::DotMatchesEverythingOption);
        return value.isString() && form.match(value.toString()).hasMatch();
    }

    QMap<QString, Record> m_records;
    QSet<QString> m_seen;
};
