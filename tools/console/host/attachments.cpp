// SPDX-License-Identifier: MIT
#include "host/attachments.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonObject>
#include <QtCore/QMimeDatabase>

namespace tolvane::console {

AttachmentDto loadAttachment(const QString &given)
{
    // No shell has expanded the tilde.
    const bool isAtHome = given.startsWith(QLatin1String("~/"));
    const QString path = isAtHome ? QDir::home().filePath(given.mid(2)) : given;
    QFile file(path);
    if (QFileInfo(path).isDir())
        throw CommandError(QStringLiteral("%1 is a folder, not a file").arg(path));
    if (!file.open(QIODevice::ReadOnly))
        throw CommandError(QStringLiteral("Cannot read %1: %2").arg(path, file.errorString()));
    const QByteArray bytes = file.readAll();
    const QString name = QFileInfo(path).fileName();
    return {.name = name,
            .mimeType = QMimeDatabase().mimeTypeForFileNameAndData(name, bytes).name(),
            .data = bytes};
}

AttachmentDto attachmentFromJson(const QJsonObject &object)
{
    const auto text = [&object](const char *key) {
        const QJsonValue value = object.value(QLatin1String(key));
        if (!value.isString())
            throw CommandError(QStringLiteral("An attachment needs the text \"path\", or \"name\", "
                                              "\"mimeType\" and \"base64\""));
        return value.toString();
    };
    if (object.contains(QLatin1String("path")))
        return loadAttachment(text("path"));
    const auto decoded = QByteArray::fromBase64Encoding(text("base64").toLatin1(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        throw CommandError(QStringLiteral("The attachment's \"base64\" is not valid"));
    return {.name = text("name"), .mimeType = text("mimeType"), .data = *decoded};
}

} // namespace tolvane::console
