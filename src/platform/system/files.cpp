// SPDX-License-Identifier: MIT
#include "platform/system/files.h"

#include <tolvane/error.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace tolvane::files {

void write(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    // For folders that allow writing the file, but not creating a temporary one.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw Error(ErrorDomain::file, file.error(), file.errorString());
}

QString unusedPath(const QString &folder, const QString &name)
{
    const QDir directory(folder);
    directory.mkpath(QStringLiteral("."));
    const QFileInfo parts(name);
    QString path = directory.filePath(name);
    for (int number = 2; QFileInfo::exists(path); ++number)
        path = directory.filePath(
            QStringLiteral("%1 (%2).%3")
                .arg(parts.completeBaseName(), QString::number(number), parts.suffix()));
    return path;
}

} // namespace tolvane::files
