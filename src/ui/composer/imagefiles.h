// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <optional>

/// Files that become attachments: which are pictures, and how they are read.
namespace tolvane::imagefiles {

/// What pictures are called, as patterns in both cases: systems compare them as they are.
QStringList patterns();

/// Those that are files of this device and are called as pictures are. Looks at no file.
TOLVANE_VIEWS_AUTOTEST_EXPORT QList<QUrl> among(const QList<QUrl> &urls);

/// The file as an attachment, its bytes unchanged. Nothing for what can't be read, is empty, or is
/// known to be no picture. Takes time; safe from any thread.
///
/// The name tells the same file again, picked twice or found in two folders, and tells nothing of
/// where it was found: the file's own name, and a digest of its bytes.
TOLVANE_VIEWS_AUTOTEST_EXPORT std::optional<AttachmentDto> read(const QUrl &file);

} // namespace tolvane::imagefiles
