// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/decodingerror.h"
#include "base/privateexport.h"

#include <QtCore/QByteArray>
#include <QtCore/QVariantMap>

// The JSON mapping of the records. Everything here is driven by the field tables; the templates are
// instantiated in json.cpp for the records that are read or written.

namespace tolvane::json {

/// Reads a record, or a list of records, from UTF-8 JSON. Strict: required fields must be there in
/// their types, the text must be one well-formed JSON value with valid UTF-8. Unknown keys are
/// passed over. Throws DecodingError.
template <typename T>
TOLVANE_AUTOTEST_EXPORT T decode(QByteArrayView bytes);

/// Reads a record from the dictionary of a broadcast, whatever there is in it. Throws
/// DecodingError.
template <typename T>
TOLVANE_AUTOTEST_EXPORT T decode(const QVariantMap &dictionary);

/// Writes a record as compact JSON; absent optionals are left out.
template <typename T>
TOLVANE_AUTOTEST_EXPORT QByteArray encode(const T &record);

/// A record as nested dictionaries, absent optionals as null values: the form in which it travels
/// in a broadcast.
template <typename T>
TOLVANE_AUTOTEST_EXPORT QVariantMap dictionary(const T &record);

/// A dictionary as a text for people: compact JSON, keys in order. One that is nested more than 64
/// levels deep is only named as such.
TOLVANE_AUTOTEST_EXPORT QString text(const QVariantMap &dictionary);

} // namespace tolvane::json
