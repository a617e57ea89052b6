// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QString>

#include <optional>

/// The library's persistent data: three entries of the preferences domain "com.tolvane.sdk", which
/// is opened for each access. If it cannot be opened, every entry reads as absent and writes have
/// no effect. Safe from any thread.
namespace tolvane::persistentstore {

/// 1 to 128 visible ASCII characters, which fit into a header. An entry with anything else reads as
/// absent, and writing anything else returns false: the customer keeps the id that works.
TOLVANE_AUTOTEST_EXPORT std::optional<QString> customerId();
TOLVANE_AUTOTEST_EXPORT bool setCustomerId(const QString &id);
/// Stores the id unless an id is stored already. Processes that call this at the same time agree on
/// one id. Returns whether this id is stored.
TOLVANE_AUTOTEST_EXPORT bool setFirstCustomerId(const QString &id);

/// The host's own id for the customer. Writing an absent value removes the entry.
TOLVANE_AUTOTEST_EXPORT std::optional<QString> customerOriginalId();
TOLVANE_AUTOTEST_EXPORT void setCustomerOriginalId(const std::optional<QString> &id);

/// The branding of the last successful load; also absent if it cannot be decoded.
TOLVANE_AUTOTEST_EXPORT std::optional<BrandingDto> branding();
TOLVANE_AUTOTEST_EXPORT void setBranding(const std::optional<BrandingDto> &branding);

} // namespace tolvane::persistentstore
