// SPDX-License-Identifier: MIT
#include "page.h"

#include "testing/process.h"

#include <QtCore/QFile>
#include <QtCore/QSysInfo>
#include <QtCore/QThread>

#include <cstdio>

namespace tolvane::bench {

namespace {

QString processor()
{
    for (const QByteArray &line : readFile(QStringLiteral("/proc/cpuinfo")).split('\n')) {
        if (line.startsWith("model name"))
            return QString::fromUtf8(line.mid(line.indexOf(':') + 1).trimmed());
    }
    return QSysInfo::currentCpuArchitecture();
}

QString renderer()
{
    return QString::fromUtf8(
        test::outputOf(QStringLiteral(TOLVANE_HOME_HOST), {QStringLiteral("renderer")}).trimmed());
}

} // namespace

QString number(double value)
{
    return QString::number(value, 'g', 4);
}

QString machine()
{
    return QStringLiteral("%1, %2 threads; %3; Qt %4; %5")
        .arg(processor())
        .arg(QThread::idealThreadCount())
        .arg(QSysInfo::prettyProductName(), QString::fromLatin1(qVersion()), renderer());
}

QString row(const QStringList &cells)
{
    return QStringLiteral("| ") + cells.join(QStringLiteral(" | ")) + QStringLiteral(" |\n");
}

QString head(const QStringList &cells)
{
    return row(cells) + u'|' + QStringLiteral("---|").repeated(cells.size()) + u'\n';
}

QByteArray readFile(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        std::fprintf(stderr, "%s: %s\n", qPrintable(fileName), qPrintable(file.errorString()));
    return file.isOpen() ? file.readAll() : QByteArray();
}

bool writeFile(const QString &fileName, const QByteArray &content)
{
    QFile file(fileName);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush())
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(fileName), qPrintable(file.errorString()));
    return false;
}

bool writeSection(const QString &fileName, const QString &title, const QString &text)
{
    const QString heading = QStringLiteral("## ") + title + u'\n';
    QString page = QFile::exists(fileName) ? QString::fromUtf8(readFile(fileName))
                                           : QStringLiteral("# Performance\n");
    qsizetype begin = page.indexOf(u'\n' + heading);
    if (begin < 0)
        begin = page.size();
    const qsizetype end = page.indexOf(QLatin1String("\n## "), begin + 1);
    const QString rest = end < 0 ? QString() : page.sliced(end);
    page = page.first(begin) + u'\n' + heading + u'\n' + text + rest;
    return writeFile(fileName, page.toUtf8());
}

} // namespace tolvane::bench
