// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

/// A document of docs/, read for the tables and examples in it.
class Document
{
public:
    using Row = QStringList;

    explicit Document(const QString &name)
    {
        QFile file(QStringLiteral(TOLVANE_SOURCES "/docs/") + name);
        if (file.open(QIODevice::ReadOnly))
            m_lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    }

    QString text() const { return m_lines.join(QLatin1Char('\n')); }

    /// The cells of the rows of all tables whose heading's first cell is that, heading left out.
    QList<Row> rows(const QString &firstHeading) const
    {
        QList<Row> found;
        bool isInside = false;
        for (const QString &line : m_lines) {
            const Row row = cells(line);
            if (row.isEmpty() || row[0].startsWith(QLatin1String("---")))
                isInside = isInside && !row.isEmpty();
            else if (isInside)
                found += row;
            else
                isInside = row[0] == firstHeading;
        }
        return found;
    }

    /// What stands between backticks.
    static QStringList words(const QString &cell)
    {
        static const QRegularExpression form(QStringLiteral("`([^`]+)`"));
        QStringList words;
        for (const QRegularExpressionMatch &match : form.globalMatch(cell))
            words += match.captured(1);
        return words;
    }

private:
    static Row cells(const QString &line)
    {
        if (!line.startsWith(QLatin1Char('|')))
            return {};
        Row row = line.mid(1, line.lastIndexOf(QLatin1Char('|')) - 1).split(QLatin1Char('|'));
        for (QString &cell : row)
            cell = cell.trimmed();
        return row;
    }

    QStringList m_lines;
};
