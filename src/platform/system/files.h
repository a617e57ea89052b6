// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Files that the customer saves, as opposed to the library's own. All functions block on the disk.
namespace tolvane::files {

/// Writes a file atomically and replaces an existing one. Throws an Error of the domain
/// "TolvaneSdk.FileError" with the system's text and a QFileDevice::FileError as code.
TOLVANE_PRIVATE_EXPORT void write(const QString &path, const QByteArray &bytes);

/// An unused path in the folder: the name, or the name with a number before its suffix. Creates the
/// folder; if that fails, write() reports it.
TOLVANE_PRIVATE_EXPORT QString unusedPath(const QString &folder, const QString &name);

} // namespace tolvane::files
