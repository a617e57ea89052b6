// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace tolvane::bench {

/// The text of a number in a table.
QString number(double value);

/// The processor, the system, the version of Qt, and the OpenGL renderer that windows use.
QString machine();

/// A row of a table in Markdown.
QString row(const QStringList &cells);
/// The first row, and the line below it.
QString head(const QStringList &cells);

/// The content of a file; empty, with a message, if that cannot be read.
QByteArray readFile(const QString &fileName);
/// Returns whether that has succeeded, and prints a message if not.
bool writeFile(const QString &fileName, const QByteArray &content);

/// Writes a section of a page of Markdown. Replaces the section with the same title, or else adds
/// it at the end. Returns whether that has succeeded.
bool writeSection(const QString &fileName, const QString &title, const QString &text);

} // namespace tolvane::bench
