// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QString>

namespace tolvane {

/// Name and value of a text part of a form.
using FormItem = QPair<QString, QString>;

/// A JSON object as flat form items, ordered by key: nested values get names such as
/// "deviceInfo[locale]" and "tags[0]", nulls get none. Throws Error for what a form cannot hold, a
/// list within a list.
TOLVANE_AUTOTEST_EXPORT QList<FormItem> flattened(const QJsonObject &object,
                                                  const QString &prefix = {});

} // namespace tolvane
