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

/// File name patterns of pictures, in lower and upper case: some systems compare case-sensitively.
QStringList patterns();

/// The URLs of local files that have the suffix of a picture. Does not access the files.
TOLVANE_VIEWS_AUTOTEST_EXPORT QList<QUrl> imageFilesIn(const QList<QUrl> &urls);

/// The URLs of local files of any kind.
QList<QUrl> filesIn(const QList<QUrl> &urls);

/// The type of a picture by its content; empty for any other content.
QString pictureType(const QByteArray &bytes);

/// The file as an attachment, its bytes unchanged. No value if the file can't be read or its
/// content is not a picture, whatever its name. Blocks while it reads; safe from any thread.
///
/// The attachment's name is the file's own name with a digest of its bytes. It identifies a file
/// that is picked twice or found in two folders, and does not reveal where it was found.
TOLVANE_VIEWS_AUTOTEST_EXPORT std::optional<AttachmentDto> read(const QUrl &file);

} // namespace tolvane::imagefiles
