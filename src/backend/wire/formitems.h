// SPDX-License-Identifier: MIT
#pragma once

#include "base/privateexport.h"

#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QString>

namespace tolvane {

/// The name and the value of a text part of a form.
using FormItem = QPair<QString, QString>;

/// Flattens a JSON object into form items, ordered by key. Nested values have names such as
/// "deviceInfo[locale]" and "tags[0]"; nulls are omitted. Throws Error for a list within a list,
/// which a form cannot represent.
TOLVANE_AUTOTEST_EXPORT QList<FormItem> flattened(const QJsonObject &object,
                                                  const QString &prefix = {});

} // namespace tolvane
