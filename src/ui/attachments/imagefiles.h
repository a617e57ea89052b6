// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <optional>

/// Recognises files that are pictures, and reads them as attachments.
namespace tolvane::imagefiles {

/// File name patterns of pictures, in lower and upper case, since some systems are case-sensitive.
QStringList patterns();

/// The URLs of local files that have the suffix of a picture. Does not access the files.
TOLVANE_VIEWS_AUTOTEST_EXPORT QList<QUrl> imageFilesIn(const QList<QUrl> &urls);

/// The URLs of local files of any kind.
QList<QUrl> filesIn(const QList<QUrl> &urls);

/// The MIME type of a picture by its content; empty if the bytes are not a picture.
QString pictureType(const QByteArray &bytes);

/// Reads a file as an attachment, with its bytes unchanged. Absent if the file cannot be read or
/// its content is not a picture. Blocks on the disk; safe from any thread.
///
/// The attachment's name is the file name with a digest of the bytes. Files that are picked twice,
/// or are in two folders, have the same name, which does not reveal the folder.
TOLVANE_VIEWS_AUTOTEST_EXPORT std::optional<AttachmentDto> read(const QUrl &file);

} // namespace tolvane::imagefiles
