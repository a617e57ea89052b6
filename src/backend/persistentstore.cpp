// SPDX-License-Identifier: MIT
#include "backend/persistentstore.h"

#include "backend/wire/json.h"
#include "platform/platform.h"

#include <algorithm>

namespace tolvane::persistentstore {

namespace {

const QString customerIdKey = QStringLiteral("customer.id");
const QString customerOriginalIdKey = QStringLiteral("customer.original_id");
const QString brandingKey = QStringLiteral("branding");

std::unique_ptr<PreferencesDomain> openDomain()
{
    return platform().preferences->open(QStringLiteral("com.tolvane.sdk"));
}

std::optional<QString> readText(const QString &key)
{
    const auto domain = openDomain();
    return domain ? domain->text(key) : std::nullopt;
}

void writeText(const QString &key, const std::optional<QString> &value)
{
    if (const auto domain = openDomain())
        domain->setText(key, value);
}

bool isCustomerId(const QString &id)
{
    constexpr qsizetype maximumLength = 128;
    return !id.isEmpty() && id.size() <= maximumLength &&
           std::ranges::all_of(id, [](QChar c) { return c > u' ' && c <= u'~'; });
}

} // namespace

std::optional<QString> customerId()
{
    const std::optional<QString> id = readText(customerIdKey);
    return id && isCustomerId(*id) ? id : std::nullopt;
}

bool setCustomerId(const QString &id)
{
    if (!isCustomerId(id))
        return false;
    writeText(customerIdKey, id);
    return true;
}

bool setFirstCustomerId(const QString &id)
{
    const auto domain = openDomain();
    if (!domain)
        return true;
    const std::optional<QString> stored = domain->text(customerIdKey);
    if (stored && isCustomerId(*stored))
        return false;
    return domain->exchangeText(customerIdKey, stored, id) == id;
}

std::optional<QString> customerOriginalId()
{
    return readText(customerOriginalIdKey);
}

void setCustomerOriginalId(const std::optional<QString> &id)
{
    writeText(customerOriginalIdKey, id);
}

std::optional<BrandingDto> branding()
{
    const auto domain = openDomain();
    const std::optional<QByteArray> bytes = domain ? domain->bytes(brandingKey) : std::nullopt;
    if (!bytes)
        return std::nullopt;
    try {
        return json::decode<BrandingDto>(*bytes);
    } catch (const DecodingError &) {
        return std::nullopt; // The next load of the settings replaces it.
    }
}

void setBranding(const std::optional<BrandingDto> &branding)
{
    const auto domain = openDomain();
    if (!domain)
        return;
    domain->setBytes(brandingKey, branding ? std::optional(json::encode(*branding)) : std::nullopt);
}

} // namespace tolvane::persistentstore
