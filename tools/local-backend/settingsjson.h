// SPDX-License-Identifier: MIT
#pragma once

#include "errors.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <string>
#include <string_view>

namespace tolvane::backend {

/// Throws a SettingsError for a file that cannot be read.
std::string contentOf(const QString &path);

/// What `parse` makes of the content of the file that the flag names. Throws a StartError, which
/// names both, where `parse` throws a SettingsError.
template <typename Parse>
auto parseFile(Parse parse, const std::string &path, const char *flag)
{
    try {
        return parse(contentOf(QString::fromStdString(path)));
    } catch (const SettingsError &error) {
        throw StartError("the file '" + path + "' of " + flag + ' ' + error.what());
    }
}

/// Throws a SettingsError for what is no JSON.
QJsonDocument settingsJson(std::string_view text);

/// The field's text, which is not empty. Throws a SettingsError.
QString settingsText(const QJsonObject &object, const QString &key);

} // namespace tolvane::backend
