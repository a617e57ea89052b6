// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// Files that a person asks for, in contrast to what the library keeps for itself. All of it waits
/// for the disk.
namespace tolvane::files {

/// Writes a file as a whole or not at all; one of that name is replaced. Fails with an Error of the
/// domain "TolvaneSdk.FileError", whose text is the system's and whose code is the kind of failure
/// by QFileDevice::FileError.
TOLVANE_PRIVATE_EXPORT void write(const QString &path, const QByteArray &bytes);

/// A path in the folder that nothing is at: the name, or the name with a number before its ending.
/// The folder is made if there is none; should that fail, write() tells.
TOLVANE_PRIVATE_EXPORT QString unusedPath(const QString &folder, const QString &name);

} // namespace tolvane::files
