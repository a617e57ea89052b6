// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"

#include <QtCore/QString>

namespace tolvane::backend {

/// Reads a file or a resource. Throws an InputError when that fails.
std::string readFile(const QString &path);

/// Returns the result of `parse` for the file's content. Converts an InputError to a StartError
/// that names the file and the command-line option.
template <typename Parse>
auto parseFile(Parse parse, const std::string &path, const char *flag)
{
    try {
        return parse(readFile(QString::fromStdString(path)));
    } catch (const InputError &error) {
        throw StartError("the file '" + path + "' of " + flag + ' ' + error.what());
    }
}

} // namespace tolvane::backend
