// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/decodingerror.h"
#include "base/privateexport.h"
#include "base/ulid.h"

#include <QtCore/QByteArray>
#include <QtCore/QVariantMap>

// The JSON mapping of the records, generic over their field tables. json.cpp instantiates the
// templates for the records in use.

namespace tolvane::json {

/// Decodes a record, a list of records or a ULID from UTF-8 JSON. Strict: required fields must be
/// present with the right types, and the text must be one well-formed JSON value in valid UTF-8.
/// Unknown keys are ignored, even if their numbers are beyond any range, and lone surrogates are
/// replaced. Throws DecodingError.
template <typename T>
TOLVANE_AUTOTEST_EXPORT T decode(QByteArrayView bytes);

/// Decodes a record from a dictionary with any content. Throws DecodingError.
template <typename T>
TOLVANE_AUTOTEST_EXPORT T decode(const QVariantMap &dictionary);

/// Encodes a record, or a ULID, as compact JSON without absent optionals.
template <typename T>
TOLVANE_AUTOTEST_EXPORT QByteArray encode(const T &record);

/// A record as nested dictionaries, with null values for absent optionals. Broadcasts carry records
/// in this form.
template <typename T>
TOLVANE_AUTOTEST_EXPORT QVariantMap dictionary(const T &record);

/// A dictionary as text for logs: compact JSON with sorted keys. If it is nested more than 64
/// levels deep, the text only says so.
TOLVANE_AUTOTEST_EXPORT QString text(const QVariantMap &dictionary);

} // namespace tolvane::json
