// SPDX-License-Identifier: MIT
// Answers of the backend: what is read is read the same way by every road.
#include "backend/wire/json.h"
#include "targets.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace tolvane::fuzz {

namespace {

template <typename Record>
std::optional<Record> decoded(const QByteArray &bytes)
{
    try {
        return json::decode<Record>(bytes);
    } catch (const DecodingError &error) {
        require(!error.localizedDescription().isEmpty(), "a refusal says why");
        return std::nullopt;
    }
}

QByteArray written(const TicketDto &ticket)
{
    return json::encode(ticket);
}
QByteArray written(const BrandingDto &branding)
{
    return json::encode(branding);
}
QByteArray written(const MessageDto &message)
{
    return json::encode(message);
}
QByteArray written(const QList<TicketPreviewDto> &list)
{
    QByteArrayList items;
    for (const TicketPreviewDto &preview : list)
        items += json::encode(preview);
    return '[' + items.join(',') + ']';
}

/// What is read can be written, and is then read as the same.
template <typename Record>
void throughWriting(const QByteArray &bytes)
{
    const auto record = decoded<Record>(bytes);
    if (!record)
        return;
    require(!QJsonDocument::fromJson(bytes).isNull(), "what is read is JSON to others");
    require(decoded<Record>(written(*record)) == record, "what is written is read as the same");
}

/// Broadcasts carry dictionaries; one that comes from the same text is the same record.
void throughADictionary(const QByteArray &bytes)
{
    const auto message = decoded<MessageDto>(bytes);
    const QVariantMap dictionary = QJsonDocument::fromJson(bytes).object().toVariantMap();
    if (!message || json::text(dictionary).startsWith(QLatin1Char('(')))
        return;
    require(json::decode<MessageDto>(dictionary) == message, "the dictionary is the same record");
    require(json::decode<MessageDto>(json::dictionary(*message)) == message,
            "a record is what its dictionary is");
}

constexpr std::array ways = {throughWriting<TicketDto>, throughWriting<QList<TicketPreviewDto>>,
                             throughWriting<MessageDto>, throughWriting<BrandingDto>,
                             throughADictionary};

} // namespace

void responses(Input input)
{
    const auto way = ways.at(input.byte() % ways.size());
    way(input.rest());
}

} // namespace tolvane::fuzz
