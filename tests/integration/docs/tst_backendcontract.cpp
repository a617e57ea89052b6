// SPDX-License-Identifier: MIT
// The contract in writing against the local backend, and against the library's own records.
#include "agentclient.h"
#include "backend/wire/records.h"
#include "document.h"
#include "eventstreamclient.h"
#include "examples.h"
#include "recordtables.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace tolvane;
using tolvane::backend::inMemory;

namespace {

const Document contract(u"backend-contract.md"_s);

/// A row of the tables of routes.
struct Route
{
    QString method;
    QString path;
    /// Of the JSON that it answers with; empty without.
    QString type;

    /// As the backend has it: what varies is a star, and nothing is before it.
    QString pattern() const
    {
        QString text = path;
        text.remove(QRegularExpression(u"^(/agent/api)?/|\\?.*"_s));
        return method + u' ' + text.replace(QRegularExpression(u"\\b[A-Z]+\\b"_s), u"*"_s);
    }
    bool isOfThePage() const { return path.startsWith("/agent/"_L1); }

    bool takes(const HttpText &request) const
    {
        QString form = QRegularExpression::escape(path.section(u'?', 0, 0));
        form.replace(QRegularExpression(u"\\b[A-Z]+\\b"_s), u"[^/?]+"_s);
        const QString prefix = isOfThePage() ? QString() : u"/api"_s;
        return request.word(0) == method &&
               QRegularExpression(u'^' + prefix + form + u"(\\?.*)?$"_s)
                   .match(request.word(1))
                   .hasMatch();
    }
};

QList<Route> routes()
{
    static const QRegularExpression form(u"200 ((?:list of )?`\\w+`)"_s);
    QList<Route> routes;
    for (const Document::Row &row : contract.rows(u"method and address"_s)) {
        const QString address = Document::words(row.value(0)).value(0);
        routes += Route{address.section(u' ', 0, 0), address.section(u' ', 1),
                        form.match(row.value(2)).captured(1).remove(u'`')};
    }
    return routes;
}

/// The routes in a file of the backend.
QStringList patternsIn(const QString &fileName)
{
    static const QRegularExpression form(u"\\{\"(GET|POST)\", \"([^\"]+)\","_s);
    QFile file(u"" TOLVANE_SOURCES "/tools/local-backend/"_s + fileName);
    QStringList patterns;
    if (file.open(QIODevice::ReadOnly)) {
        for (const auto &match : form.globalMatch(QString::fromUtf8(file.readAll())))
            patterns += match.captured(1) + u' ' + match.captured(2);
    }
    patterns.sort();
    return patterns;
}

std::string demoBranding()
{
    return TOLVANE_SOURCES "/tools/demo/branding.json";
}

/// A client that sends what stands in the document.
struct Reader : Customer
{
    explicit Reader(const RunningBackend &backend)
        : Customer(backend.port(), "01kb5j7hq2r5v8z1d4g6k9m3pt")
    {
        headers["Authorization"] = "Bearer my-api-key";
        headers["Content-Type"] = "";
        headers["Host"] = "127.0.0.1:" + std::to_string(backend.port());
    }

    httplib::Response send(const HttpText &request)
    {
        Headers special;
        for (const QString &name : request.headers.keys())
            special[name.toStdString()] = request.headers[name].toStdString();
        QString body = request.body;
        if (request.headers.value(u"Content-Type"_s).startsWith("multipart"_L1))
            body.replace(u'\n', u"\r\n"_s);
        return Customer::send(request.word(0).toStdString(),
                              names.translated(request.word(1)).toStdString(), body.toStdString(),
                              special);
    }

    /// How the answer differs from the one in the document; empty if it does not.
    QString difference(const HttpText &request, const HttpText &expected)
    {
        answer = send(request);
        if (QString::number(answer.status) != expected.word(1))
            return u"status %1: %2"_s.arg(answer.status).arg(QString::fromStdString(answer.body));
        for (const QString &name : expected.headers.keys()) {
            const QString real =
                QString::fromStdString(answer.get_header_value(name.toStdString()));
            if (real != expected.headers[name])
                return name + u": "_s + real;
        }
        if (expected.body.isEmpty() != answer.body.empty())
            return u"body: "_s + QString::fromStdString(answer.body);
        if (expected.headers.value(u"Content-Type"_s) != "application/json"_L1)
            return {};
        const QJsonValue written = jsonIn(expected.body.toUtf8());
        const QJsonValue real = jsonIn(QByteArray::fromStdString(answer.body));
        if (shapeOf(written) != shapeOf(real))
            return shapeOf(real) + u" instead of "_s + shapeOf(written);
        names.learn(written, real);
        return {};
    }

    RealNames names;
    httplib::Response answer;
};

template <typename Record>
QStringList keysOf()
{
    QStringList keys;
    forEachField<Record>([&](const auto &field) {
        const Record record{};
        constexpr bool isOptional = requires
        {
            (record.*field.member).has_value();
        };
        keys += QString::fromLatin1(field.key.data(), qsizetype(field.key.size())) +
                (isOptional ? u"?"_s : QString());
    });
    keys.sort();
    return keys;
}

} // namespace

class BackendContract : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theBackendHasTheRoutes()
    {
        for (const bool isOfThePage : {false, true}) {
            QStringList written;
            for (const Route &route : routes()) {
                if (route.isOfThePage() == isOfThePage)
                    written += route.pattern();
            }
            written.sort();
            QVERIFY(!written.isEmpty());
            QCOMPARE(written, patternsIn(isOfThePage ? u"agentroutes.cpp"_s : u"server.cpp"_s));
        }
    }

    void theExamplesHold()
    {
        const RunningBackend backend(inMemory, 1ms, {"my-api-key"}, demoBranding());
        Reader reader(backend);
        RecordTables tables(contract);
        QStringList untried;
        for (const Route &route : routes())
            untried += route.isOfThePage() ? QString() : route.pattern();
        untried.removeAll(QString());
        const QStringList blocks = contract.blocks(u"http"_s);
        QVERIFY(blocks.size() % 2 == 0);
        for (qsizetype i = 0; i < blocks.size(); i += 2) {
            const HttpText request(blocks[i]);
            const HttpText expected(blocks[i + 1]);
            // The agents take a moment until they have answered.
            if (request.word(0) == u"GET"_s)
                QTRY_COMPARE_WITH_TIMEOUT(reader.difference(request, expected), QString(), 15'000);
            else
                QCOMPARE(request.firstLine + reader.difference(request, expected),
                         request.firstLine);
            const QJsonValue answer = jsonIn(QByteArray::fromStdString(reader.answer.body));
            const QList<Route> known = routes();
            const auto route =
                std::ranges::find_if(known, [&](const Route &each) { return each.takes(request); });
            QVERIFY2(route != known.end(), qPrintable(request.firstLine));
            untried.removeAll(route->pattern());
            if (!route->type.isEmpty() && !expected.body.isEmpty())
                QCOMPARE(tables.complaints(answer, route->type).join(u"; "_s), QString());
        }
        // What ends by itself only, and what has nothing to show.
        QCOMPARE(untried, QStringList({u"GET push/*"_s, u"GET agents/maya.png"_s}));

        for (const Route &route : routes()) {
            if (route.method != "GET"_L1 || route.type.isEmpty() || route.pattern().contains(u'*'))
                continue;
            const auto response = reader.get((route.isOfThePage() ? "" : "/api") +
                                             route.path.section(u'?', 0, 0).toStdString());
            QCOMPARE(response.status, 200);
            const QJsonValue answer = jsonIn(QByteArray::fromStdString(response.body));
            QCOMPARE(tables.complaints(answer, route.type).join(u"; "_s), QString());
        }
        QCOMPARE(tables.unseen(), QStringList());
    }

    void failuresHaveTheirStatus()
    {
        const RunningBackend backend(inMemory, 1h, {"my-api-key"});
        Reader reader(backend);
        int count = 0;
        for (const Document::Row &row : contract.rows(u"status"_s)) {
            const QStringList words = Document::words(row.value(2));
            if (words.isEmpty())
                continue;
            QString block = QString(words[0]).replace(u" /"_s, u" /api/"_s);
            const QString detail = words.value(1);
            block += detail.startsWith(u'{') ? u"\n\n"_s + detail : u'\n' + detail;
            const httplib::Response answer = reader.send(HttpText(block));
            QCOMPARE(words[0] + u' ' + QString::number(answer.status), words[0] + u' ' + row[0]);
            QCOMPARE(json(answer).object().keys(), QStringList(u"error"_s));
            ++count;
        }
        QVERIFY(count > 3);
    }

    void pushesHaveTheirRecords()
    {
        static const QRegularExpression form(u"\"(\\w+)\": (\\w+)\\}"_s);
        QMap<QString, QString> types;
        for (const Document::Row &row : contract.rows(u"payload"_s)) {
            const auto match = form.match(row.value(0));
            types.insert(match.captured(1), match.captured(2));
        }
        const RunningBackend backend(inMemory, 1ms);
        Customer customer(backend.port());
        customer.send("POST", "/api/customer/device/update", R"({"deviceToken":"0aff64"})");
        EventStreamClient host(backend, "/api/push/0aff64");
        QTRY_VERIFY_WITH_TIMEOUT(host.received().contains("\r\n\r\n"), timeout);
        const std::string path = customer.open();
        QTRY_COMPARE_WITH_TIMEOUT(host.payloads().size(), 1, timeout);
        customer.write(path, "thanks, bye");
        QTRY_COMPARE_WITH_TIMEOUT(host.payloads().size(), 3, timeout);
        RecordTables tables(contract);
        QStringList kinds;
        for (QJsonObject payload : host.payloads()) {
            QCOMPARE(payload.take("source"_L1), QJsonValue(u"tolvane"_s));
            QCOMPARE(payload.size(), 1);
            kinds += payload.keys();
            QVERIFY(types.contains(kinds.constLast()));
            QCOMPARE(
                tables.complaints(*payload.constBegin(), types[kinds.constLast()]).join(u"; "_s),
                QString());
        }
        kinds.removeDuplicates();
        kinds.sort();
        QCOMPARE(kinds, types.keys());
    }

    void theLibraryReadsTheSameRecords_data()
    {
        QTest::addColumn<QStringList>("keys");
        QTest::newRow("Ticket") << keysOf<TicketDto>();
        QTest::newRow("Message") << keysOf<MessageDto>();
        QTest::newRow("Sender") << keysOf<SenderDto>();
        QTest::newRow("TicketPreview") << keysOf<TicketPreviewDto>();
        QTest::newRow("Schedule") << keysOf<ScheduleDto>();
        QTest::newRow("Branding") << keysOf<BrandingDto>();
    }

    void theLibraryReadsTheSameRecords()
    {
        QFETCH(const QStringList, keys);
        const auto record = RecordTables(contract).record(QLatin1String(QTest::currentDataTag()));
        QStringList written;
        for (const QString &name : record.keys())
            written += name + (record[name].isOptional ? u"?"_s : QString());
        QCOMPARE(written, keys);
    }

    void theLibrarySendsTheSameForm()
    {
        QStringList written;
        for (const Document::Row &row : contract.rows(u"`deviceInfo`"_s))
            written += Document::words(row.value(0));
        QCOMPARE(written, keysOf<DeviceInfoDto>());
    }
};

QTEST_GUILESS_MAIN(BackendContract)
#include "tst_backendcontract.moc"
