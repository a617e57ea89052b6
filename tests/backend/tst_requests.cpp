// SPDX-License-Identifier: MIT
#include "backend/apiclient.h"
#include "backend/apierror.h"
#include "backend/configuration.h"
#include "backend/endpoint.h"
#include "backend/persistentstore.h"
#include "platform/async/awaitfuture.h"
#include "testing/samplerecords.h"

#include <QtCore/QJsonDocument>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;

namespace {

using Operation = std::function<QCoro::Task<>(APIClient)>;

// Separate coroutines, because their arguments must outlive the response.
QCoro::Task<> getBranding(APIClient client, std::optional<QString> updatedAt)
{
    co_await client.getBranding(updatedAt);
}
QCoro::Task<> createTicket(APIClient client, CreateTicketDto ticket, QList<AttachmentDto> files)
{
    co_await client.createTicket(ticket, files);
}
QCoro::Task<> getTicket(APIClient client, QString id)
{
    co_await client.getTicket(id);
}
QCoro::Task<> getTickets(APIClient client)
{
    co_await client.getTickets();
}
QCoro::Task<> sendMessage(APIClient client, SendMessageDto message)
{
    co_await client.sendMessage(u"t1"_s, message);
}

const QList<AttachmentDto> twoFiles = {{u"ä\".png"_s, u"image/png"_s, QByteArray("\0\r\n--", 5)},
                                       {u"b"_s, u"text/plain"_s, ""}};

struct NamedOperation
{
    const char *name;
    Operation run;
    const char *method;
    const char *address;
    const char *contentType;
};

const QList<NamedOperation> &operations()
{
    static const QList<NamedOperation> all = {
        {"getBranding", [](auto c) { return getBranding(c, {}); }, "GET", "/api/settings?updatedAt",
         ""},
        {"createTicket", [](auto c) { return createTicket(c, {}, {}); }, "POST",
         "/api/ticket/create", "multipart/form-data"},
        {"getTicket", [](auto c) { return getTicket(c, u"t1"_s); }, "GET", "/api/ticket/t1", ""},
        {"getTickets", getTickets, "GET", "/api/tickets", ""},
        {"sendMessage", [](auto c) { return sendMessage(c, {}); }, "POST", "/api/ticket/t1",
         "multipart/form-data"},
        {"updateCustomer", [](auto c) { return c.updateCustomer({}); }, "POST",
         "/api/customer/update", "application/json"},
        {"updateDevice", [](auto c) { return c.updateDevice({}); }, "POST",
         "/api/customer/device/update", "application/json"},
    };
    return all;
}

struct RequestFixture : Fixture
{
    RequestFixture()
    {
        setKey();
        environment.insert(u"TOLVANE_API_URL"_s, u"http://h/api"_s);
        session->handler = [this](const UrlRequest &) { return response; };
    }

    /// Runs an operation to its end. Returns its error, null on success.
    ErrorPtr run(const Operation &operation)
    {
        ErrorPtr failure;
        detach(watch(operation, failure));
        settle();
        return failure;
    }

    static QCoro::Task<> watch(Operation operation, ErrorPtr &failure)
    {
        try {
            co_await operation(APIClient::live());
        } catch (...) {
            failure = currentError();
        }
    }

    const UrlRequest &last() const { return session->requests.constLast(); }

    UrlResponse response;
};

QByteArrayList headerNames(const UrlRequest &request)
{
    QByteArrayList names;
    for (const auto &header : request.headers)
        names += header.first;
    return names;
}

void replaceId(const QByteArray &id, const QString &next)
{
    for (const int messages : {0, 2000}) { // Large responses are decoded elsewhere.
        RequestFixture fixture;
        persistentstore::setCustomerId(u"old"_s);
        fixture.response =
            jsonResponse(makeTicket(QList<MessageDto>(messages, makeMessage(u"m"_s))));
        fixture.response.headers = {{"x-tolvane-customer", id}};
        QVERIFY(!fixture.run([](auto client) { return getTicket(client, u"t1"_s); }));
        fixture.response.status = 500;
        fixture.run(getTickets);
        QCOMPARE(fixture.last().headers.constLast().second, next.toUtf8());
        QCOMPARE(persistentstore::customerId(), next);
        QCOMPARE(fixture.log->lines.size(), next == u"old"_s ? 2 : 0); // One for each response.
    }
}

} // namespace

class RequestsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void routesAndHeaders()
    {
        RequestFixture fixture;
        fixture.response.status = 500;
        for (const NamedOperation &operation : operations()) {
            persistentstore::setCustomerId(u"me"_s);
            fixture.run(operation.run);
            const UrlRequest &request = fixture.last();
            QCOMPARE(request.method, operation.method);
            QCOMPARE(request.url.toEncoded(), QByteArray("http://h") + operation.address);
            const QByteArray type =
                UrlResponse{0, request.headers, {}}.header("Content-Type").value_or("");
            QVERIFY(type.startsWith(operation.contentType));
            QByteArrayList names = {"Accept", "Authorization", "X-Tolvane-Customer"};
            if (!type.isEmpty())
                names.insert(1, "Content-Type");
            QCOMPARE(headerNames(request), names);
            QCOMPARE(request.headers.constFirst().second, "application/json");
            QCOMPARE(request.headers.at(names.size() - 2).second, "Bearer secret-key");
            QCOMPARE(request.timeout, std::chrono::seconds(60));
        }
    }

    void addressesAreValid()
    {
        // The address is empty when none can be made.
        const auto row = [](const QString &id, const QByteArray &address,
                            const QString &base = u"http://h/api"_s) {
            RequestFixture fixture;
            fixture.environment.insert(u"TOLVANE_API_URL"_s, base);
            fixture.run([id](auto client) { return getTicket(client, id); });
            QCOMPARE(fixture.last().url.isValid(), !address.isEmpty());
            QCOMPARE(fixture.last().url.toEncoded(), address);
        };
        row(u"a%2Fb:@!~_"_s, "http://h/api/ticket/a%2Fb:@!~_");
        row(u"a?x=1#b"_s, "http://h/api/ticket/a%3Fx=1%23b");
        row(u"a b\n%zz"_s, "http://h/api/ticket/a%20b%0A%25zz");
        row(u"../customer/update"_s, "http://h/api/ticket/..%2Fcustomer%2Fupdate");
        for (const QString &id : {u""_s, u" \t"_s, u"."_s, u".."_s, u"%2e."_s})
            row(id, "");
        row(u"a"_s, {}, u"http://[oops"_s);
    }

    void environmentsHaveTheirEndpoints()
    {
        RequestFixture fixture;
        using enum Tolvane::Environment;
        const QList<std::pair<Tolvane::Environment, QString>> endpoints = {
            {production, u"https://api.tolvane.example/api"_s},
            {development, u"https://api.development.tolvane.example/api"_s},
            {alpha, u"https://api.alpha.tolvane.example/api"_s}};
        fixture.environment.insert(u"TOLVANE_API_URL"_s, {}); // Empty, which counts as not set.
        for (const auto &[environment, url] : endpoints) {
            Configuration::shared().setEnvironment(environment);
            fixture.run(getTickets);
            QCOMPARE(fixture.last().url.toString(), url + u"/tickets"_s);
            QVERIFY(!headerNames(fixture.last()).contains("X-Tolvane-Customer"));
        }
        fixture.environment.insert(u"TOLVANE_API_URL"_s, u"http://own"_s); // Read for each request.
        fixture.run(getTickets);
        QCOMPARE(fixture.last().url.toString(), u"http://own/tickets"_s);
    }

    void releaseBuildsKeepTheKeyPrivate()
    {
        for (const char *url :
             {"https://own", "http://127.0.0.1:1/api", "http://[::1]:1", "http://localhost/api"})
            QVERIFY2(mayReplaceEndpoint(QUrl(QString::fromLatin1(url))), url);
        for (const char *url : {"http://own", "http://127.0.0.1.own", "ftp://localhost", "own", ""})
            QVERIFY2(!mayReplaceEndpoint(QUrl(QString::fromLatin1(url))), url);
    }

    void statusesAreClassified_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("text"); // The error text of operations that have a result.
        QTest::newRow("404") << 404 << QByteArray("<h1>é</h1>") << u"Client error: <h1>é</h1>"_s;
        QTest::newRow("401 with the key")
            << 401 << QByteArray("no secret-key!") << u"Client error: no ***!"_s;
        QTest::newRow("400, empty") << 400 << QByteArray() << u"Client error: "_s;
        QTest::newRow("500, invalid UTF-8")
            << 500 << QByteArray("\xff") << u"Server error: No response"_s;
        QTest::newRow("599") << 599 << QByteArray("x") << u"Server error: x"_s;
        for (const int status : {199, 302, 304, 600})
            QTest::addRow("%d", status) << status << QByteArray("x") << u"Unknown error"_s;
        QTest::newRow("204") << 204 << QByteArray() << u"There is no data."_s;
        QTest::newRow("299") << 299 << QByteArray("{}") << u"is missing."_s;
    }

    void statusesAreClassified()
    {
        QFETCH(const int, status);
        QFETCH(const QByteArray, body);
        QFETCH(const QString, text);
        RequestFixture fixture;
        fixture.response = {.status = status, .headers = {}, .body = body};
        for (const NamedOperation &operation : operations()) {
            const ErrorPtr error = fixture.run(operation.run);
            const bool hasNoResult = QByteArrayView(operation.name).startsWith("update");
            const bool isNotModified = status == 304 && operation.method == "GET"_ba &&
                                       QByteArrayView(operation.name) == "getBranding";
            if (isNotModified || (hasNoResult && status < 300 && status >= 200))
                QVERIFY2(!error, operation.name);
            else if (status == 299 && QByteArrayView(operation.name) == "getTickets")
                QCOMPARE(error->localizedDescription(), u"expected a list."_s);
            else
                QVERIFY2(error && error->localizedDescription().contains(text), operation.name);
            if (error && status > 299)
                QVERIFY(dynamic_cast<const APIError *>(error.get()));
        }
    }

    void theResponseReplacesTheCustomerId()
    {
        replaceId("new", u"new"_s);
        replaceId(QByteArray(128, '~'), QString(128, u'~'));
        for (const QByteArray &illegal :
             {QByteArray(), QByteArray(129, 'x'), QByteArray(90'000, 'x'), QByteArray("a, a"),
              QByteArray("a\rb"), QByteArray("a\0b", 3), QByteArray("\xc3\xa4"), QByteArray(" ")})
            replaceId(illegal, u"old"_s);
    }

    void formsAreEncoded()
    {
        RequestFixture fixture;
        const SendMessageDto message{.message = u"hä"_s, .attachments = twoFiles};
        fixture.run([message](auto client) { return sendMessage(client, message); });
        const QByteArray type = fixture.last().headers.at(1).second;
        const QByteArray boundary = type.sliced(type.indexOf('=') + 1);
        const QByteArray body =
            "--B\r\nContent-Disposition: form-data; name=\"message\"\r\n\r\nhä\r\n"
            "--B\r\nContent-Disposition: form-data; name=\"attachments[]\"; "
            "filename=\"ä\".png\"\r\nContent-Type: image/png\r\n\r\n" +
            QByteArray("\0\r\n--", 5) +
            "\r\n--B\r\nContent-Disposition: form-data; name=\"attachments[]\"; "
            "filename=\"b\"\r\nContent-Type: text/plain\r\n\r\n\r\n--B--";
        QCOMPARE(fixture.last().body, QByteArray(body).replace("--B", "--" + boundary));
        fixture.run([](auto client) { return sendMessage(client, {}); });
        QCOMPARE(fixture.last().body.count("Content-Disposition"), 1);
        QVERIFY(!fixture.last().body.contains(boundary));
    }

    void aNewTicketDescribesTheDevice()
    {
        RequestFixture fixture;
        fixture.device->state = Device::BatteryState::charging;
        fixture.bundle->version = u"2.0"_s; // The build is not known.
        const CreateTicketDto ticket{u"hi"_s, u"ios"_s, DeviceInfoDto::current()};
        fixture.run([ticket](auto client) { return createTicket(client, ticket, twoFiles); });
        QByteArrayList parts;
        for (const QByteArray &line : fixture.last().body.split('\n')) {
            const qsizetype name = line.indexOf("name=\"");
            if (line.startsWith("Content-Disposition"))
                parts += line.sliced(name + 6, line.indexOf('"', name + 6) - name - 6);
            else if (!line.startsWith("--") && !line.trimmed().isEmpty() && parts.size() < 14)
                parts.last() += '=' + line.trimmed();
        }
        QCOMPARE(parts,
                 QByteArrayList(
                     {"channel=ios", "deviceInfo[appBuild]=Unknown", "deviceInfo[appVersion]=2.0",
                      "deviceInfo[batteryLevel]=-1", "deviceInfo[batteryState]=Charging",
                      "deviceInfo[deviceModel]=Test Model", "deviceInfo[deviceName]=Test Name",
                      "deviceInfo[locale]=de_AT", "deviceInfo[osVersion]=12.4",
                      "deviceInfo[screenHeight]=844", "deviceInfo[screenWidth]=390",
                      "deviceInfo[timezone]=Europe/Vienna", "message=hi", "attachments[]",
                      "attachments[]"}));
    }
};

QTEST_GUILESS_MAIN(RequestsTest)
#include "tst_requests.moc"
