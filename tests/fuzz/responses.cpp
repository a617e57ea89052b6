// SPDX-License-Identifier: MIT
// Responses of the backend: all decoders give the same record.
#include "targets.h"
#include "testing/samplerecords.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace tolvane::fuzz {

namespace {

using namespace Qt::StringLiterals;

template <typename Record>
std::optional<Record> decoded(const QByteArray &bytes)
{
    try {
        return json::decode<Record>(bytes);
    } catch (const DecodingError &error) {
        require(!error.localizedDescription().isEmpty(), "a decoding error has a description");
        return std::nullopt;
    }
}

template <typename Record>
QByteArray written(const Record &record)
{
    return json::encode(record);
}
template <typename Record>
QByteArray written(const QList<Record> &list)
{
    return test::encodeList(list);
}

/// A decoded record is the same after encoding and decoding.
template <typename Record>
void checkJsonRoundTrip(const QByteArray &bytes)
{
    const auto record = decoded<Record>(bytes);
    if (!record)
        return;
    require(!QJsonDocument::fromJson(bytes).isNull(), "decoded input is valid JSON");
    require(decoded<Record>(written(*record)) == record,
            "an encoded record decodes to the same record");
}

/// Broadcasts carry dictionaries. A dictionary of the same JSON decodes to the same record.
void checkDictionaryRoundTrip(const QByteArray &bytes)
{
    const auto message = decoded<MessageDto>(bytes);
    const QVariantMap dictionary = QJsonDocument::fromJson(bytes).object().toVariantMap();
    if (!message || json::text(dictionary).startsWith(QLatin1Char('(')))
        return;
    require(json::decode<MessageDto>(dictionary) == message,
            "a dictionary decodes to the same record");
    require(json::decode<MessageDto>(json::dictionary(*message)) == message,
            "a record's dictionary decodes to the same record");
}

constexpr std::array checks = {
    checkJsonRoundTrip<TicketDto>, checkJsonRoundTrip<QList<TicketPreviewDto>>,
    checkJsonRoundTrip<MessageDto>, checkJsonRoundTrip<BrandingDto>, checkDictionaryRoundTrip};

} // namespace

void responses(Input input)
{
    const auto check = checks.at(input.byte() % checks.size());
    check(input.rest());
}

} // namespace tolvane::fuzz
