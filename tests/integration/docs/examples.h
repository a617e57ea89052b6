// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QUrl>

/// A request or an answer as it stands in a document.
struct HttpText
{
    explicit HttpText(const QString &block)
        : firstLine(block.section(QLatin1Char('\n'), 0, 0))
        , body(block.section(QStringLiteral("\n\n"), 1))
    {
        const QStringList head =
            block.section(QStringLiteral("\n\n"), 0, 0).split(QLatin1Char('\n'));
        for (const QString &line : head.sliced(1)) {
            headers.insert(line.section(QStringLiteral(": "), 0, 0),
                           line.section(QStringLiteral(": "), 1));
        }
    }

    /// The word of the first line that stands there.
    QString word(int place) const { return firstLine.section(QLatin1Char(' '), place, place); }

    QString firstLine;
    QMap<QString, QString> headers;
    QString body;
};

inline QJsonValue jsonIn(const QByteArray &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

/// Keys and types of a value; of a list, those that its elements have.
inline QString shapeOf(const QJsonValue &value)
{
    QStringList parts;
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (const QString &key : object.keys())
            parts += key + QLatin1Char(':') + shapeOf(object[key]);
        return QLatin1Char('{') + parts.join(QLatin1Char(' ')) + QLatin1Char('}');
    }
    if (value.isArray()) {
        for (const QJsonValue &each : value.toArray())
            parts += shapeOf(each);
        parts.removeDuplicates();
        parts.sort();
        return QLatin1Char('[') + parts.join(QLatin1Char(' ')) + QLatin1Char(']');
    }
    return value.isString() ? QStringLiteral("text") : QStringLiteral("other");
}

/// What the document's ids and addresses are called in reality.
class RealNames
{
public:
    void learn(const QJsonValue &written, const QJsonValue &real)
    {
        if (written.isObject()) {
            const QJsonObject object = written.toObject();
            for (const QString &key : object.keys())
                learn(object[key], real[key]);
        } else if (written.isArray()) {
            for (qsizetype i = 0; i < written.toArray().size(); ++i)
                learn(written[i], real[i]);
        } else if (written.isString() && !m_names.contains(keyOf(written))) {
            m_names.insert(keyOf(written), keyOf(real));
        }
    }

    QString translated(QString text) const
    {
        for (const QString &name : m_names.keys()) {
            // Short words are texts, and no names of anything.
            if (name.size() < 20)
                continue;
            text.replace(name, m_names[name]);
            text.replace(encoded(name), encoded(m_names[name]));
        }
        return text;
    }

private:
    static QString encoded(const QString &text)
    {
        return QString::fromLatin1(QUrl::toPercentEncoding(text));
    }

    /// Of an address, the path: hosts differ.
    static QString keyOf(const QJsonValue &value)
    {
        const QString text = value.toString();
        return text.startsWith(QLatin1String("http")) ? QUrl(text).path(QUrl::FullyEncoded) : text;
    }

    QMap<QString, QString> m_names;
};
