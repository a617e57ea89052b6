// SPDX-License-Identifier: MIT
#pragma once

#include "base/errors.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <string>
#include <string_view>

namespace tolvane::backend {

/// Reads a file. Throws a SettingsError when that fails.
std::string readFile(const QString &path);

/// Returns the result of `parse` for the file's content. Converts a SettingsError to a StartError
/// that names the file and the command-line option.
template <typename Parse>
auto parseFile(Parse parse, const std::string &path, const char *flag)
{
    try {
        return parse(readFile(QString::fromStdString(path)));
    } catch (const SettingsError &error) {
        throw StartError("the file '" + path + "' of " + flag + ' ' + error.what());
    }
}

/// Throws a SettingsError for malformed JSON.
QJsonDocument parseSettingsJson(std::string_view text);

/// Returns a field's text. Throws a SettingsError when it is missing or empty.
QString requiredText(const QJsonObject &object, const QString &key);

} // namespace tolvane::backend
