// SPDX-License-Identifier: MIT
#include "backend/wire/json.h"
#include "testing/samplerecords.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

/// JSON with apostrophes in place of quotation marks, which is easier to read in C++.
QByteArray operator""_j(const char *text, std::size_t size)
{
    return QByteArray(text, static_cast<qsizetype>(size)).replace('\'', '"');
}

const QByteArray sender = "'sender':{'id':'s','type':'customer'}"_j;

QByteArray message(const QByteArray &more = {})
{
    return "{'id':'m','ticketId':'t',"_j + sender +
           ",'content':'c','isRead':false,'timestamp':'now'"_j + more + '}';
}

QByteArray ticket(const QByteArray &messages)
{
    return "{'id':'t','state':'open','assignee':'x','schedules':[],'messages':["_j + messages +
           "]}";
}

QByteArray nested(int depth)
{
    return QByteArray(depth, '[') + QByteArray(depth, ']');
}

/// The keys of a record, optional ones with a question mark, in alphabetical order.
template <typename Record>
QStringList keysOf()
{
    QStringList keys;
    forEachField<Record>([&](const auto &field) {
        constexpr bool isOptional = requires(Record record)
        {
            (record.*field.member).has_value();
        };
        keys += QString::fromLatin1(field.key.data(), qsizetype(field.key.size())) +
                (isOptional ? u"?"_s : QString());
    });
    keys.sort();
    return keys;
}

/// The same of a schema of the contract.
QStringList keysOf(const QJsonObject &schema)
{
    QStringList keys = schema[u"properties"_s].toObject().keys();
    const QJsonArray required = schema[u"required"_s].toArray();
    for (QString &key : keys)
        key += required.contains(key) ? QString() : u"?"_s;
    keys.sort();
    return keys;
}

} // namespace

class JsonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void decodes_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<MessageDto>("expected");
        MessageDto plain = makeMessage(u"m"_s);
        plain.ticketId = u"t"_s;
        plain.sender.id = u"s"_s;
        plain.content = u"c"_s;
        plain.timestamp = u"now"_s;
        QTest::newRow("plain") << message() << plain;
        QTest::newRow("unknown keys")
            << message(",'x':{'id':[null,{'y':1e300}]},'':true"_j) << plain;
        QTest::newRow("unknown numbers beyond any range")
            << message(",'x':[1e999,-99999999999999999999,18446744073709551616,'1e999\\'1e999']"_j)
            << plain;
        QTest::newRow("nulls are absent") << message(",'attachments':null"_j) << plain;
        MessageDto with = plain;
        with.attachments = QList<QString>();
        QTest::newRow("an empty list is not absent") << message(",'attachments':[]"_j) << with;
        with.attachments = {u"a"_s, u"😀\n\"é"_s};
        QTest::newRow("escapes") << message(",'attachments':['a','\\ud83d\\ude00\\n\\'\\u00e9']"_j)
                                 << with;
        QTest::newRow("lone surrogates")
            << message(",'attachments':['a\\ud800','\\ud83d\\ude00\\udc00\\\\ud800']"_j)
            << [with]() mutable {
                   with.attachments = {u"a\uFFFD"_s, u"😀\uFFFD\\ud800"_s};
                   return with;
               }();
        QTest::newRow("the last of duplicate keys wins")
            << message(",'attachments':['x'],'attachments':['a','😀\\n\\'é']"_j) << with;
        with = plain;
        with.sender.name = QString();
        QTest::newRow("empty name")
            << QByteArray(message()).replace("'type'"_j, "'name':'','profilePicture':null,'type'"_j)
            << with;
    }

    void decodes()
    {
        QFETCH(const QByteArray, json);
        QFETCH(const MessageDto, expected);
        const auto decoded = tolvane::json::decode<MessageDto>(json);
        QCOMPARE(decoded, expected);
        QCOMPARE(tolvane::json::decode<MessageDto>(tolvane::json::encode(decoded)), expected);
        QCOMPARE(tolvane::json::decode<MessageDto>(tolvane::json::dictionary(decoded)), expected);
        QCOMPARE(qHash(decoded, 0), qHash(expected, 0));
    }

    void rejects()
    {
        const auto row = [](const char *name, const QByteArray &json, DecodingError::Kind kind,
                            const QString &path) {
            try {
                tolvane::json::decode<TicketDto>(json);
                QFAIL(name);
            } catch (const DecodingError &error) {
                QVERIFY2(error.kind() == kind && error.codingPath() == path, name);
                QVERIFY2(error.localizedDescription().startsWith(path) &&
                             error.localizedDescription().size() > path.size(),
                         name);
            }
        };
        const QByteArray good = message();
        const auto without = [&good](const char *part, const char *instead) {
            return ticket(good + ',' + QByteArray(good).replace(part, instead));
        };
        using enum DecodingError::Kind;
        row("missing", without(",'type':'customer'"_j, ""), keyNotFound,
            u"messages[1].sender.type"_s);
        row("null", without("'content':'c'"_j, "'content':null"_j), valueNotFound,
            u"messages[1].content"_s);
        row("wrong type", without("'isRead':false"_j, "'isRead':0"_j), typeMismatch,
            u"messages[1].isRead"_s);
        row("wrong element", ticket(good + ",7"), typeMismatch, u"messages[1]"_s);
        row("wrong optional", ticket(message(",'attachments':'a'"_j)), typeMismatch,
            u"messages[0].attachments"_s);
        row("null in a list", ticket(message(",'attachments':['a',null]"_j)), typeMismatch,
            u"messages[0].attachments[1]"_s);
        row("missing required list", QByteArray(ticket("")).replace("'schedules':[],"_j, ""),
            keyNotFound, u"schedules"_s);
        row("a list in place of an object", "[]", typeMismatch, QString());
        row("empty", "", dataCorrupted, QString());
        row("cut", ticket(message()).chopped(1), dataCorrupted, QString());
        row("trailing", ticket("") + "{}", dataCorrupted, QString());
        row("invalid UTF-8", ticket(message(",\"x\":\"\xc3\x28\"")), dataCorrupted, QString());
        row("a known number beyond any range", without("'isRead':false"_j, "'isRead':1e999"_j),
            typeMismatch, u"messages[1].isRead"_s);
        row("an invalid number", ticket(message(",'x':[1e999,01]"_j)), dataCorrupted, QString());
        row("an invalid escape", ticket(message(",'x':'\\ud800\\uzzzz'"_j)), dataCorrupted,
            QString());
        row("malformed unknown value", ticket(message(",'x':[1,2}"_j)), dataCorrupted, QString());
        row("deep", nested(100'000), dataCorrupted, QString());
        row("deep unknown value", ticket(message(",\"x\":" + nested(100'000))), dataCorrupted,
            QString());
    }

    void encodes()
    {
        QCOMPARE(tolvane::json::encode(UpdateCustomerDto()), "{}");
        QCOMPARE(tolvane::json::encode(UpdateDeviceDto{{}, u"a\x01\"\\\n\u00e9"_s}),
                 "{\"deviceToken\":\"a\\u0001\\\"\\\\\\n\xc3\xa9\"}");
        CreateTicketDto created;
        created.deviceInfo.screenWidth = -3;
        created.deviceInfo.batteryLevel = 0.83F;
        const QByteArray ticketForm = tolvane::json::encode(created);
        QVERIFY(ticketForm.contains("'screenWidth':-3,'screenHeight':0,'batteryLevel':0.83,"_j));
    }

    void recordsMatchTheContract()
    {
        QFile file(QStringLiteral(TOLVANE_SOURCES "/docs/backend.openapi.json"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QJsonObject contract = QJsonDocument::fromJson(file.readAll()).object();
        const QJsonObject schemas = contract[u"components"_s][u"schemas"_s].toObject();
        QCOMPARE(keysOf<TicketDto>(), keysOf(schemas[u"Ticket"_s].toObject()));
        QCOMPARE(keysOf<MessageDto>(), keysOf(schemas[u"Message"_s].toObject()));
        QCOMPARE(keysOf<SenderDto>(), keysOf(schemas[u"Sender"_s].toObject()));
        QCOMPARE(keysOf<TicketPreviewDto>(), keysOf(schemas[u"TicketPreview"_s].toObject()));
        QCOMPARE(keysOf<ScheduleDto>(), keysOf(schemas[u"Schedule"_s].toObject()));
        QCOMPARE(keysOf<BrandingDto>(), keysOf(schemas[u"Branding"_s].toObject()));
        QCOMPARE(keysOf<DeviceInfoDto>(), keysOf(schemas[u"DeviceInfo"_s].toObject()));
    }
};

QTEST_GUILESS_MAIN(JsonTest)
#include "tst_json.moc"
