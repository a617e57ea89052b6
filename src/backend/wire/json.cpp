// SPDX-License-Identifier: MIT
#include "backend/wire/json.h"

#include "backend/wire/jsonreader.h"
#include "backend/wire/jsonrepair.h"
#include "backend/wire/jsonwriter.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>

namespace tolvane::json {

namespace {

template <typename T>
QVariant variant(const T &value)
{
    return QVariant::fromValue(value);
}

template <Record T>
QVariant variant(const T &record)
{
    return dictionary(record);
}

template <typename T>
QVariant variant(const QList<T> &list)
{
    QVariantList variants;
    variants.reserve(list.size());
    for (const T &item : list)
        variants += variant(item);
    return variants;
}

template <typename T>
QVariant variant(const std::optional<T> &value)
{
    return value ? variant(*value) : QVariant();
}

// Deeper than any record, and far from the end of the stack.
constexpr int maximumDepth = 64;

/// True if dictionaries and lists are nested deeper than `levels`.
bool isDeeper(const QVariant &value, int levels)
{
    const auto anyDeeper = [levels](const auto &children) {
        return levels == 0 || std::any_of(children.begin(), children.end(), [&](const auto &child) {
                   return isDeeper(child, levels - 1);
               });
    };
    switch (value.typeId()) {
    case QMetaType::QVariantList:
        return anyDeeper(value.toList());
    case QMetaType::QVariantMap:
        return anyDeeper(value.toMap());
    case QMetaType::QVariantHash:
        return anyDeeper(value.toHash());
    default:
        return false;
    }
}

/// Absent if the dictionary is nested too deeply, for which Qt's conversion would overflow the
/// stack.
std::optional<QByteArray> compactJson(const QVariantMap &dictionary)
{
    if (isDeeper(dictionary, maximumDepth))
        return std::nullopt;
    return QJsonDocument(QJsonObject::fromVariantMap(dictionary)).toJson(QJsonDocument::Compact);
}

} // namespace

template <typename T>
T decode(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        throw DecodingError(DecodingError::dataCorrupted, {}, QStringLiteral("There is no data."));
    simdjson::dom::parser parser;
    Element root;
    const auto parse = [&](QByteArrayView text) {
        return parser.parse(text.data(), static_cast<std::size_t>(text.size())).get(root);
    };
    auto error = parse(bytes);
    if (error == simdjson::STRING_ERROR || error == simdjson::NUMBER_ERROR)
        error = parse(repaired(bytes));
    if (error) {
        throw DecodingError(DecodingError::dataCorrupted, {},
                            QStringLiteral("The data is not valid JSON. (%1)")
                                .arg(QLatin1String(simdjson::error_message(error))));
    }
    T value;
    TextPool texts;
    read(root, value, CodingPath(texts));
    return value;
}

template <typename T>
T decode(const QVariantMap &dictionary)
{
    const auto bytes = compactJson(dictionary);
    if (!bytes)
        throw DecodingError(DecodingError::dataCorrupted, {},
                            QStringLiteral("The dictionary is nested too deeply."));
    return decode<T>(*bytes);
}

template <typename T>
QByteArray encode(const T &record)
{
    QByteArray out;
    write(out, record);
    return out;
}

template <typename T>
QVariantMap dictionary(const T &record)
{
    QVariantMap map;
    forEachField<T>([&](const auto &field) {
        map.insert(QString::fromLatin1(field.key.data(), static_cast<qsizetype>(field.key.size())),
                   variant(record.*field.member));
    });
    return map;
}

QString text(const QVariantMap &dictionary)
{
    const auto bytes = compactJson(dictionary);
    return bytes ? QString::fromUtf8(*bytes) : QStringLiteral("(nested too deeply)");
}

template TOLVANE_AUTOTEST_EXPORT BrandingDto decode(QByteArrayView);
template TOLVANE_AUTOTEST_EXPORT TicketDto decode(QByteArrayView);
template TOLVANE_AUTOTEST_EXPORT QList<TicketPreviewDto> decode(QByteArrayView);
template TOLVANE_AUTOTEST_EXPORT MessageDto decode(QByteArrayView);
template TOLVANE_AUTOTEST_EXPORT DeviceInfoDto decode(QByteArrayView);
template TOLVANE_AUTOTEST_EXPORT ULID decode(QByteArrayView);

template TOLVANE_AUTOTEST_EXPORT MessageDto decode(const QVariantMap &);
template TOLVANE_AUTOTEST_EXPORT TicketPreviewDto decode(const QVariantMap &);

template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const BrandingDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const TicketDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const TicketPreviewDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const MessageDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const CreateTicketDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const UpdateCustomerDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const UpdateDeviceDto &);
template TOLVANE_AUTOTEST_EXPORT QByteArray encode(const ULID &);

template TOLVANE_AUTOTEST_EXPORT QVariantMap dictionary(const MessageDto &);
template TOLVANE_AUTOTEST_EXPORT QVariantMap dictionary(const TicketPreviewDto &);
template TOLVANE_AUTOTEST_EXPORT QVariantMap dictionary(const TicketDto &);

} // namespace tolvane::json
