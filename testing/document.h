// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QStringList>

namespace tolvane::test {

/// A page of docs/, for tests that compare its tables with the code.
class Document
{
public:
    /// The cells of a row, and the heading above its table.
    struct Row : QStringList
    {
        QString section;
    };

    explicit Document(const QString &name)
    {
        QFile file(QStringLiteral(TOLVANE_SOURCES "/docs/") + name);
        if (file.open(QIODevice::ReadOnly))
            m_lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    }

    QString text() const { return m_lines.join(QLatin1Char('\n')); }

    /// The rows of all tables with this first heading, without the headings.
    QList<Row> rows(const QString &firstHeading) const
    {
        QList<Row> found;
        QString section;
        bool isInside = false;
        for (const QString &line : m_lines) {
            if (line.startsWith(QLatin1Char('#')))
                section = line.section(QLatin1Char(' '), 1);
            const Row row = {cells(line), section};
            if (row.isEmpty() || row[0].startsWith(QLatin1String("---")))
                isInside = isInside && !row.isEmpty();
            else if (isInside)
                found += row;
            else
                isInside = row[0] == firstHeading;
        }
        return found;
    }

    /// The texts between backticks.
    static QStringList words(const QString &cell)
    {
        static const QRegularExpression form(QStringLiteral("`([^`]+)`"));
        QStringList words;
        for (const QRegularExpressionMatch &match : form.globalMatch(cell))
            words += match.captured(1);
        return words;
    }

private:
    static QStringList cells(const QString &line)
    {
        if (!line.startsWith(QLatin1Char('|')))
            return {};
        QStringList row =
            line.mid(1, line.lastIndexOf(QLatin1Char('|')) - 1).split(QLatin1Char('|'));
        for (QString &cell : row)
            cell = cell.trimmed();
        return row;
    }

    QStringList m_lines;
};

} // namespace tolvane::test
