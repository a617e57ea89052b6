// SPDX-License-Identifier: MIT
#pragma once

#include "backend/wire/records.h"
#include "base/privateexport.h"

#include <QtCore/QString>

#include <optional>

/// What the library keeps on the device: three entries of the preferences domain "com.tolvane.sdk",
/// which is opened anew for each access. Where it cannot be opened, everything reads as absent and
/// nothing is written. Safe from any thread.
namespace tolvane::persistentstore {

TOLVANE_AUTOTEST_EXPORT std::optional<QString> customerId();
TOLVANE_AUTOTEST_EXPORT void setCustomerId(const QString &id);

/// The host's own id for the customer. Writing an absent value removes the entry.
TOLVANE_AUTOTEST_EXPORT std::optional<QString> customerOriginalId();
TOLVANE_AUTOTEST_EXPORT void setCustomerOriginalId(const std::optional<QString> &id);

/// The branding of the last load that brought one; absent also when it cannot be read.
TOLVANE_AUTOTEST_EXPORT std::optional<BrandingDto> branding();
TOLVANE_AUTOTEST_EXPORT void setBranding(const std::optional<BrandingDto> &branding);

} // namespace tolvane::persistentstore
