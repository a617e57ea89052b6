// SPDX-License-Identifier: MIT
#pragma once

#include "errors.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <string_view>

namespace tolvane::backend {

/// Throws a SettingsError for what is no JSON.
QJsonDocument settingsJson(std::string_view text);

/// The field's text, which is not empty. Throws a SettingsError.
QString settingsText(const QJsonObject &object, const QString &key);

} // namespace tolvane::backend
