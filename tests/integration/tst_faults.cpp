// SPDX-License-Identifier: MIT
// The stores' operations against the local backend with a network fault: the error that is
// reported, the input that is kept, and the effect of the customer's next attempt.
#include "backend/persistentstore.h"
#include "base/decodingerror.h"
#include "platform/async/awaitfuture.h"
#include "recovery/messagesender.h"
#include "state/sdkdata.h"
#include "state/ticketdata.h"
#include "state/ticketsdata.h"
#include "testing/backendprogram.h"
#include "testing/faultproxy.h"
#include "testing/fixture.h"
#include "testing/timeoutsession.h"

#include <QtCore/QLibraryInfo>
#include <QtCore/QVersionNumber>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace tolvane;
using namespace tolvane::test;
using namespace std::chrono_literals;

namespace {

const QString question = u"Where is my parcel? 📦"_s;
const AttachmentDto label = {u"label.png"_s, u"image/png"_s, QByteArray(20'000, '\1')};

/// A host on the real network that reaches the backend through the proxy.
struct FaultFixture : Fixture
{
    explicit FaultFixture(const BackendProgram &backend)
        : proxy(backend.port())
    {
        setKey();
        environment.insert(u"TOLVANE_API_URL"_s, proxy.url(u"/api"_s));
        auto installed = std::make_unique<TimeoutSession>(makeNetworkSession());
        network = installed.get();
        scripted = std::exchange(platform().urlSession, std::move(installed));
        // The backend keeps its data between the rows, so each row has its own customer.
        persistentstore::setCustomerId(u"customer-%1"_s.arg(customers++));
        ticket->setNewTicket(true);
    }
    ~FaultFixture() { platform().urlSession.swap(scripted); }

    /// Runs an operation to its end.
    void run(QCoro::Task<> task)
    {
        bool hasEnded = false;
        detach(whenEnded(std::move(task), hasEnded));
        if (!QTest::qWaitFor([&] { return hasEnded; }, 30'000))
            qFatal("An operation does not finish");
        settle();
    }

    /// Starts a conversation without faults.
    void begin()
    {
        ticket->setMessage(u"Hello"_s);
        run(ticket->createTicket());
        // Polling has made its first request and sleeps, since time stands still.
        if (!QTest::qWaitFor([&] { return clock->sleeperCount() > 0; }, 30'000))
            qFatal("There is no polling");
    }

    void compose()
    {
        ticket->setMessage(question);
        ticket->setAttachments({label});
    }

    /// The domain and code of the last error that was reported to analytics; empty without one.
    QString reported() const
    {
        QString text;
        for (const TolvaneAnalyticsEvent &event : delegate->events) {
            const QVariantMap properties = event.properties();
            if (properties.contains(u"error_domain"_s))
                text = nameOf(properties[u"error_domain"_s].toString(),
                              properties[u"error_code"_s].toInt());
        }
        return text;
    }

    static QString nameOf(const ErrorPtr &error)
    {
        return error ? nameOf(error->domain(), error->code()) : QString();
    }

    static QString nameOf(const QString &domain, int code)
    {
        return domain + u' ' + QString::number(code);
    }

    static inline int customers = 0;

    FaultProxy proxy;
    TimeoutSession *network;
    std::unique_ptr<UrlSession> scripted;
    std::shared_ptr<TicketsData> tickets = std::make_shared<TicketsData>();
    std::shared_ptr<TicketData> ticket = std::make_shared<TicketData>(std::nullopt);

private:
    static QCoro::Task<> whenEnded(QCoro::Task<> task, bool &hasEnded)
    {
        co_await task;
        hasEnded = true;
    }
};

struct Operation
{
    const char *name;
    QByteArray method;
    QByteArray path;
    bool sends;
    QCoro::Task<> (*run)(FaultFixture &fixture);
    /// "DOMAIN CODE" of its error; empty on success.
    QString (*failure)(const FaultFixture &fixture);
};

const Operation operations[] = {
    {"settings", "GET", "/api/settings", false,
     [](FaultFixture &) { return SdkData::shared()->fetchSettings(); },
     [](const FaultFixture &fixture) {
         return SdkData::shared()->settingsDidLoad() ? QString() : fixture.reported();
     }},
    {"tickets", "GET", "/api/tickets", false,
     [](FaultFixture &fixture) { return fixture.tickets->load(); },
     [](const FaultFixture &fixture) {
         return FaultFixture::nameOf(fixture.tickets->state().failure());
     }},
    {"ticket", "GET", "/api/ticket/", false,
     [](FaultFixture &fixture) { return fixture.ticket->fetchTicket(); },
     [](const FaultFixture &fixture) {
         return FaultFixture::nameOf(fixture.ticket->fetchError());
     }},
    {"create", "POST", "/api/ticket/create", true,
     [](FaultFixture &fixture) { return fixture.ticket->createTicket(); },
     [](const FaultFixture &fixture) { return FaultFixture::nameOf(fixture.ticket->sendError()); }},
    {"message", "POST", "/api/ticket/", true,
     [](FaultFixture &fixture) { return fixture.ticket->sendMessage(); },
     [](const FaultFixture &fixture) { return FaultFixture::nameOf(fixture.ticket->sendError()); }},
};

struct Expectation
{
    const Fault *fault;
    const char *failure;
    std::chrono::milliseconds timeout = 60s;
};

const Expectation expectations[] = {
    {&faults::reset, "NSURLErrorDomain -1005"},
    {&faults::resetAfterRequest, "NSURLErrorDomain -1005"},
    {&faults::truncated, "NSURLErrorDomain -1005"},
    {&faults::stalled, "NSURLErrorDomain -1001", 1s},
    {&faults::stalledMidBody, "NSURLErrorDomain -1001", 1s},
    {&faults::trickled, ""},
    {&faults::duplicated, ""},
    {&faults::delayed, ""},
    {&faults::unavailable, "TolvaneSdk.APIError 1"},
    {&faults::badGateway, "TolvaneSdk.APIError 1"},
    {&faults::notHttp, "NSURLErrorDomain -1005"},
    {&faults::invalidJson, "TolvaneSdk.DecodingError 1"},
    {&faults::nullBody, "TolvaneSdk.DecodingError 2"},
};
static_assert(std::size(expectations) == faults::all.size());

} // namespace

class FaultsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void faultsAreReportedAndLoseNoInput_data()
    {
        QTest::addColumn<const Operation *>("operation");
        QTest::addColumn<const Expectation *>("expected");
        for (const Operation &operation : operations) {
            for (const Expectation &expected : expectations)
                QTest::addRow("%s, %s", operation.name, expected.fault->name)
                    << &operation << &expected;
        }
    }

    void faultsAreReportedAndLoseNoInput()
    {
        QFETCH(const Operation *, operation);
        QFETCH(const Expectation *, expected);
        const QString failure = QLatin1String(expected->failure);
        FaultFixture fixture(m_backend);
        if (operation->path != "/api/ticket/create")
            fixture.begin();
        fixture.compose();
        fixture.delegate->events.clear();
        fixture.proxy.clearRequests();
        fixture.proxy.chooseFault = [&](const ServedRequest &request) -> const Fault & {
            return isOf(*operation, request) ? *expected->fault : faults::none;
        };

        fixture.network->timeout = expected->timeout;
        fixture.run(operation->run(fixture));
        fixture.network->timeout = 60s;
        fixture.proxy.chooseFault = nullptr;
        QCOMPARE(operation->failure(fixture), failure);
        // No request is repeated automatically, but Qt 6.11 repeats a GET when a connection breaks.
        if (QLibraryInfo::version() < QVersionNumber(6, 11) || operation->sends)
            QCOMPARE(count(fixture, *operation), 1);
        const bool isSent = operation->sends && failure.isEmpty();
        QCOMPARE(fixture.ticket->message(), isSent ? QString() : question);
        QCOMPARE(fixture.ticket->attachments(), isSent ? QList<AttachmentDto>() : QList{label});
        QCOMPARE(fixture.ticket->isSendDisabled(), isSent);

        if (!failure.isEmpty())
            fixture.run(operation->run(fixture));
        QCOMPARE(operation->failure(fixture), QString());
        QCOMPARE(fixture.ticket->message().isEmpty(), operation->sends);

        // The backend has handled a request whose response was lost, but the host cannot know.
        const bool isDuplicated = !failure.isEmpty() && expected->fault->reachesBackend;
        QCOMPARE(questionsAtBackend(fixture), operation->sends ? 1 + isDuplicated : 0);
    }

    void aLostResponseIsFound()
    {
        for (const Fault *search : {&faults::none, &faults::reset}) {
            for (const bool creates : {true, false}) {
                for (const int pictures : {0, 1})
                    loseTheResponse(creates, pictures, true, faults::resetAfterRequest, *search);
            }
            loseTheResponse(true, 0, false, faults::resetAfterRequest, *search);
        }
        loseTheResponse(true, 0, true, faults::nullBody, faults::none);
        // A backend that cannot list its tickets may still take one.
        loseTheResponse(true, 0, false, faults::none, faults::unavailable);
    }

private:
    void loseTheResponse(bool creates, int pictures, bool knowsList, const Fault &loss,
                         const Fault &search)
    {
        const bool fails = &search == &faults::reset;
        FaultFixture fixture(m_backend);
        if (!creates)
            fixture.begin();
        fixture.compose();
        if (pictures == 0)
            fixture.ticket->setAttachments({});
        bool wasLost = false;
        bool searchFails = true;
        fixture.proxy.chooseFault = [&](const ServedRequest &request) -> const Fault & {
            if (request.method == "POST" && !std::exchange(wasLost, true))
                return loss;
            if (request.method == "GET" && searchFails) {
                searchFails = fails;
                return search;
            }
            return faults::none;
        };
        const auto sender = std::make_shared<MessageSender>(fixture.ticket);
        if (knowsList)
            sender->setKnownTicketIds({});
        ErrorPtr error;
        fixture.run(send(sender, error));
        QCOMPARE(FaultFixture::nameOf(error), fails ? u"NSURLErrorDomain -1005"_s : QString());
        QCOMPARE(fixture.ticket->message(), fails ? question : QString());
        searchFails = false;
        if (fails) // The customer presses once more.
            fixture.run(send(sender, error));
        QVERIFY(!error && fixture.ticket->message().isEmpty());
        QVERIFY(fixture.ticket->attachments().isEmpty() && !fixture.ticket->newTicket());
        QCOMPARE(questionsAtBackend(fixture, pictures), 1);
    }

    static bool isOf(const Operation &operation, const ServedRequest &request)
    {
        return request.method == operation.method && request.target.startsWith(operation.path);
    }

    static qsizetype count(const FaultFixture &fixture, const Operation &operation)
    {
        return std::ranges::count_if(fixture.proxy.requests(), [&](const ServedRequest &request) {
            return isOf(operation, request);
        });
    }

    static QCoro::Task<> send(std::shared_ptr<MessageSender> sender, ErrorPtr &error)
    {
        error = co_await sender->send();
    }

    /// How often the backend has the question, each time with its pictures.
    static int questionsAtBackend(FaultFixture &fixture, qsizetype pictures = 1)
    {
        int questions = 0;
        fixture.run(fixture.tickets->load());
        if (fixture.tickets->state().failure())
            return -1;
        const auto list = fixture.tickets->state().value().value_or(QList<TicketPreviewDto>());
        for (const TicketPreviewDto &preview : list) {
            const auto ticket = std::make_shared<TicketData>(preview);
            fixture.run(ticket->fetchTicket());
            const QList<MessageDto> messages = ticket->ticket()->messages;
            for (const MessageDto &message : messages)
                questions += message.content == question &&
                             message.attachments.value_or(QStringList()).size() == pictures;
        }
        return questions;
    }

    QTemporaryDir m_folder;
    BackendProgram m_backend{m_folder.path(), u"3600"_s};
};

QTEST_GUILESS_MAIN(FaultsTest)
#include "tst_faults.moc"
